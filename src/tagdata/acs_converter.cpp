#include "tagdata/acs_converter.h"

#include <bit>

#include "engine/byte_reader.h"
#include "engine/byte_writer.h"
#include "engine/format.h"
#include "engine/number_text.h"
#include "tagdata/kuid.h"

namespace morvex {

constinit const ACSConverter* ACSConverter::first_ = nullptr;

ACSConverter::ACSConverter(ChunkKind from, ChunkKind to) : from_(from), to_(to), next_(first_) {
  first_ = this;
}

namespace {

Raw WordRaw(uint32_t word) {
  std::vector<uint8_t> bytes;
  Nox::ByteWriter(bytes).U32(word);
  return ACSRawDataCore::CopyBytes(bytes.data(), bytes.size());
}

// The whole groups of four bytes, each written by `format`, with commas between them.
template <typename Number>
std::string ListText(const Raw& input, std::string_view format, Number (*read)(Nox::ByteReader&)) {
  Nox::ByteReader in(RawBytes(input));
  std::string text;
  while (in.Remaining() >= 4) {
    if (!text.empty()) text += ',';
    Nox::AppendFormat(text, format, read(in));
  }
  return text;
}

struct ACSConverter_TextInt final : ACSConverter {
  ACSConverter_TextInt() : ACSConverter(ChunkKind::kString, ChunkKind::kInt) {}
  void Convert(const Raw& input, Raw& output) const override {
    const std::string_view text = RawText(input);
    output = IsNumberText(text) ? WordRaw(static_cast<uint32_t>(Nox::ReadInt(text))) : Raw();
  }
};

struct ACSConverter_TextFloat final : ACSConverter {
  ACSConverter_TextFloat() : ACSConverter(ChunkKind::kString, ChunkKind::kFloat) {}
  void Convert(const Raw& input, Raw& output) const override {
    const std::string_view text = RawText(input);
    output = IsNumberText(text) ? WordRaw(std::bit_cast<uint32_t>(Nox::ReadFloat(text))) : Raw();
  }
};

// A text that is no KUID gives the null KUID.
struct ACSConverter_TextKUID final : ACSConverter {
  ACSConverter_TextKUID() : ACSConverter(ChunkKind::kString, ChunkKind::kKuid) {}
  void Convert(const Raw& input, Raw& output) const override {
    const KUID::Bytes bytes = KUID(RawText(input), false).ToChunkData();
    output = ACSRawDataCore::CopyBytes(bytes.data(), bytes.size());
  }
};

struct ACSConverter_IntText final : ACSConverter {
  ACSConverter_IntText() : ACSConverter(ChunkKind::kInt, ChunkKind::kString) {}
  void Convert(const Raw& input, Raw& output) const override {
    output = TextRaw(ListText<int32_t>(input, "%d", [](Nox::ByteReader& in) { return in.I32(); }));
  }
};

struct ACSConverter_FloatText final : ACSConverter {
  ACSConverter_FloatText() : ACSConverter(ChunkKind::kFloat, ChunkKind::kString) {}
  void Convert(const Raw& input, Raw& output) const override {
    output = TextRaw(ListText<float>(input, "%g", [](Nox::ByteReader& in) { return in.F32(); }));
  }
};

struct ACSConverter_KUIDText final : ACSConverter {
  ACSConverter_KUIDText() : ACSConverter(ChunkKind::kKuid, ChunkKind::kString) {}
  void Convert(const Raw& input, Raw& output) const override {
    Nox::ByteReader in(RawBytes(input));
    const uint32_t word = in.U32();
    KUID kuid;
    kuid.Unpack(word, in.I32());
    output = in.Failed() ? Raw() : TextRaw(kuid.TagText());
  }
};

const ACSConverter_TextInt textInt;
const ACSConverter_TextFloat textFloat;
const ACSConverter_TextKUID textKUID;
const ACSConverter_IntText intText;
const ACSConverter_FloatText floatText;
const ACSConverter_KUIDText kuidText;

const ACSConverter* FindConverter(ChunkKind from, ChunkKind to) {
  const ACSConverter* converter = ACSConverter::First();
  while (converter != nullptr && (converter->From() != from || converter->To() != to))
    converter = converter->Next();
  return converter;
}

}  // namespace

void Convert(ChunkKind from, const Raw& input, ChunkKind to, Raw& output) {
  if (from == to) {
    output = input;
    return;
  }
  output = Raw();
  if (from == ChunkKind::kNull || to == ChunkKind::kNull) return;
  if (const ACSConverter* direct = FindConverter(from, to)) {
    direct->Convert(input, output);
    return;
  }
  for (const ACSConverter* first = ACSConverter::First(); first != nullptr; first = first->Next()) {
    const ACSConverter* second = first->From() == from ? FindConverter(first->To(), to) : nullptr;
    if (second == nullptr) continue;
    Raw between;
    first->Convert(input, between);
    second->Convert(between, output);
    return;
  }
}

bool IsNumberText(std::string_view text) {
  if (!text.empty() && text.front() == '-') text.remove_prefix(1);
  if (text.empty()) return false;
  text = text.substr(0, text.find_last_not_of(" \t") + 1);

  bool point = false;
  bool exponent = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= '0' && c <= '9') continue;
    if (c == '.' && !point) {
      point = true;
    } else if (c == 'e' && point && !exponent) {
      exponent = true;
      const char sign = ++i < text.size() ? text[i] : '\0';
      if ((sign != '+' && sign != '-') || i + 1 == text.size()) return false;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace morvex
