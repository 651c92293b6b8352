#pragma once

#include <string>
#include <string_view>

#include "engine/byte_writer.h"

namespace morvex::test {

// Puts index files together field by field, knowing nothing of the code that it tests.
class IndexBytes {
 public:
  IndexBytes& U8(unsigned value) { return Writer(bytes_).U8(static_cast<uint8_t>(value)), *this; }
  template <typename... Values>
  IndexBytes& U32(Values... values) {
    return (Writer(bytes_).U32(static_cast<uint32_t>(values)), ...), *this;
  }
  IndexBytes& U64(uint64_t value) { return Writer(bytes_).U64(value), *this; }
  IndexBytes& F32(float value) { return Writer(bytes_).F32(value), *this; }
  IndexBytes& Kuid(int32_t user, int32_t content, uint32_t version = 0) {
    Writer(bytes_).I32(content);
    return U32(version << 25 | (static_cast<uint32_t>(user) & 0x1FFFFFF));
  }
  IndexBytes& NullKuid() { return Kuid(-1, -1, 127); }
  // With its NUL; empty as a count of 0.
  IndexBytes& Text(std::string_view text) {
    if (text.empty()) return U32(0);
    U32(static_cast<uint32_t>(text.size() + 1));
    Writer(bytes_).Text(text);
    return U8(0);
  }
  IndexBytes& Raw(std::string_view bytes) { return Writer(bytes_).Text(bytes), *this; }
  IndexBytes& Header(uint32_t records) { return U32(0xCEEBA2DB).U32(19).U32(0xFEEDCEEB).U32(records); }

  // A record with a local copy and its remembered bits set.
  IndexBytes& Record(int32_t user, int32_t content, std::string_view name, std::string_view localPath) {
    Kuid(user, content, user < 0 ? 127 : 0)
        .Text("SY;SCEN")
        .Text(name)
        .Text("DE")
        .Text("1950")
        .Text("red")
        .Text("")
        .Text("")
        .Text("");
    Text(localPath).NullKuid();
    for (const char bit : std::string_view("01000100"  // enabled, archived known
                                           "00100111"  // both answers known, may be committed and edited
                                           "1"))
      U8(bit == '1');
    return U32(4711).F32(2.5F).U8(3).U64(1000).U64(2000).Text("a house").Text("");
  }

  // With the size patched in.
  std::string File() {
    Writer(bytes_).PatchU32(8, static_cast<uint32_t>(bytes_.size()));
    return bytes_;
  }
  const std::string& Bytes() const { return bytes_; }

 private:
  using Writer = Nox::ByteWriter<std::string>;

  std::string bytes_;
};

// What stands behind the records, in its order, with nothing in it where a test says nothing.
struct IndexSections {
  IndexBytes obsoletes = IndexBytes().U32(0).NullKuid();
  IndexBytes dependencies = IndexBytes().U32(0, 0);
  IndexBytes authors = IndexBytes().U32(0, 0);
  IndexBytes notes = IndexBytes().Raw(std::string_view("ACS$\1\0\0\0\0\0\0\0\0\0\0\0", 16));
  IndexBytes archives = IndexBytes().U32(0, 0);
  IndexBytes station = IndexBytes().U32(1).Text("").U64(0).U32(0);
  IndexBytes tail = IndexBytes().U32(0, 1).F32(0);
};

// The whole file, the records in front.
inline std::string IndexOf(IndexBytes records, const IndexSections& sections = {}) {
  for (const IndexBytes* part : {&sections.obsoletes, &sections.dependencies, &sections.authors,
                                 &sections.notes, &sections.archives, &sections.station, &sections.tail})
    records.Raw(part->Bytes());
  return records.File();
}

}  // namespace morvex::test
