#include "database/catalogue/archive_file.h"

#include "tagdata/chunk_format.h"
#include "tagdata/stream.h"

namespace morvex {
namespace {

constexpr int64_t kKuidSize = KUID::kBinarySize;
constexpr int64_t kSmallestEntry = kKuidSize + 4 + kChumpHeaderSize;

}  // namespace

ArchiveHeader ReadArchiveHeader(TStream& stream) {
  ArchiveHeader header;
  stream.ReadU32s(header.magic, header.version, header.fileSize, header.serial);
  return header;
}

ArchiveEntries::ArchiveEntries(TStream& stream)
    : stream_(stream), size_(stream.Size()), next_(stream.Position()) {}

bool ArchiveEntries::Next() {
  const int64_t here = next_;
  damaged_ = true;
  if (here + kKuidSize > size_) return false;
  stream_.SeekTo(here);
  uint32_t content = 0;
  uint32_t word = 0;
  stream_.ReadU32s(content, word);
  kuid_.Unpack(word, static_cast<int32_t>(content));  // not KUID::ReadFrom, to which a cut file ends well
  if (kuid_.IsNull()) {
    damaged_ = false;
    return false;
  }
  if (here + kSmallestEntry > size_) return false;
  next_ = stream_.ReadU32();
  damaged_ = next_ < here + kSmallestEntry;
  return !damaged_;
}

}  // namespace morvex
