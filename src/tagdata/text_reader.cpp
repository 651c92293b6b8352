#include <algorithm>
#include <array>
#include <bit>
#include <string>

#include "engine/number_text.h"
#include "engine/text.h"
#include "tagdata/chunk_builder.h"
#include "tagdata/code_page.h"
#include "tagdata/kuid.h"
#include "tagdata/stream.h"
#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"
#include "tagdata/text_cursor.h"
#include "tagdata/text_value.h"
#include "tagdata/tree_builder.h"

namespace morvex {
namespace {

constexpr size_t kMaxKey = 511;
constexpr size_t kMaxNumberText = 31;
constexpr size_t kMaxListText = 255;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// Reads a text tag by tag into a builder. Nested soups are counted and not recursed into, since their depth is
// up to the text; those below kMaxSoupDepth are read over and dropped.
class SoupReader {
 public:
  SoupReader(std::string_view text, bool isUtf8, SoupBuilder& out) : in_(text), out_(out) {
    utf8_[0] = isUtf8 || in_.AcceptText(kUtf8Mark);
  }

  void Read();
  size_t Position() const { return in_.Position(); }

 private:
  bool Dropping() const { return depth_ > kMaxSoupDepth; }
  bool IsUtf8() const { return utf8_[std::min<size_t>(depth_, kMaxSoupDepth)]; }
  void ReadKey();
  void ReadTag();
  void ReadNumber(ChunkKind kind);
  void ReadFloatList();
  void ReadString();
  void OpenSoup();
  bool CloseSoup();

  TextCursor in_;
  SoupBuilder& out_;
  size_t depth_ = 0;
  std::array<bool, kMaxSoupDepth + 1> utf8_;  // of each open soup
  std::array<char, kMaxKey> keyBytes_;
  std::string_view key_;
  std::string buffer_;
};

void SoupReader::Read() {
  while (true) {
    in_.While(kBlanks | kLineEnds);
    if (!in_.Sees(kBrace | kNul)) {
      ReadTag();
    } else if (!CloseSoup()) {
      return;
    }
  }
}

void SoupReader::OpenSoup() {
  const bool isUtf8 = IsUtf8() || in_.AcceptText(kUtf8Mark);
  if (++depth_ > kMaxSoupDepth) return;
  utf8_[depth_] = isUtf8;
  out_.Open(key_);
}

// Ends the innermost soup, at its brace or where the text breaks off; false if it was the outermost.
bool SoupReader::CloseSoup() {
  if (depth_ == 0) return false;
  if (!Dropping()) out_.Close();
  --depth_;
  in_.Accept('}');
  return true;
}

void SoupReader::ReadKey() {
  const std::string_view key = in_.Until(kBlanks | kLineEnds | kBrace | kNul).substr(0, kMaxKey);
  std::transform(key.begin(), key.end(), keyBytes_.begin(), [](char c) { return Nox::ToLower(c); });
  key_ = {keyBytes_.data(), key.size()};
}

void SoupReader::ReadTag() {
  ReadKey();
  switch (ClassifyValue(in_)) {
    case TextValue::kNone:
      if (!Dropping()) out_.Leaf(key_, ChunkKind::kNull, nullptr, 0);
      return;
    case TextValue::kSoup:
      return OpenSoup();
    case TextValue::kInt:
      return ReadNumber(ChunkKind::kInt);
    case TextValue::kFloat:
      return ReadNumber(ChunkKind::kFloat);
    case TextValue::kFloatList:
      return ReadFloatList();
    case TextValue::kString:
      return ReadString();
  }
}

void SoupReader::ReadNumber(ChunkKind kind) {
  const std::string_view text = ReadShortText(in_, kMaxNumberText);
  if (Dropping()) return;
  const uint32_t word = kind == ChunkKind::kInt ? static_cast<uint32_t>(Nox::ReadInt(text))
                                                : std::bit_cast<uint32_t>(Nox::ReadFloat(text));
  out_.Leaf(key_, kind, &word, sizeof word);
}

// A list of nothing takes away the tag that was there.
void SoupReader::ReadFloatList() {
  TextCursor list(ReadShortText(in_, kMaxListText));
  if (Dropping()) return;
  std::array<float, kMaxListText / 2 + 1> values;
  size_t count = 0;
  while (true) {
    list.While(kBlanks | kComma);
    const std::string_view piece = list.Until(kBlanks | kComma);
    if (piece.empty()) break;
    values[count++] = Nox::ReadFloat(piece);
  }
  if (count == 0) return out_.Remove(key_);
  out_.Leaf(key_, ChunkKind::kFloat, values.data(), count * sizeof(float));
}

bool LooksLikeKuid(std::string_view text) {
  return text.starts_with('<') &&
         (Nox::StartsWithIgnoreCase(text, "<kuid:") || Nox::StartsWithIgnoreCase(text, "<kuid2:") ||
          Nox::StartsWithIgnoreCase(text, "<null>"));
}

bool IsAscii(std::string_view text) {
  unsigned char all = 0;
  for (const char c : text)
    all |= static_cast<unsigned char>(c);
  return all < 0x80;
}

void SoupReader::ReadString() {
  const std::string_view text = ReadStringValue(in_, buffer_);
  if (Dropping()) return;
  if (LooksLikeKuid(text)) {
    const KUID::Bytes kuid = KUID(text, false).ToChunkData();
    out_.Leaf(key_, ChunkKind::kKuid, kuid.data(), kuid.size());
  } else if (IsUtf8() || IsAscii(text)) {
    out_.String(key_, text);
  } else {
    out_.String(key_, AnsiAsUtf8(text));
  }
}

size_t ReadInto(SoupBuilder& builder, std::string_view text, bool isUtf8) {
  SoupReader reader(text, isUtf8, builder);
  reader.Read();
  return reader.Position();
}

}  // namespace

size_t ParseSoupText(TagContainer& container, std::string_view text, bool isUtf8) {
  ChunkBuilder chunks(text.size());
  const size_t position = ReadInto(chunks, text, isUtf8);
  if (chunks.Fits()) {
    container = chunks.Finish();
    return position;
  }
  TreeBuilder tree;
  ReadInto(tree, text, isUtf8);
  container = tree.Finish();
  return position;
}

void ParseSoup(TagContainer& container, TStream& stream, bool isUtf8) {
  container.Clear();
  if (!stream.IsOpen()) return;
  const int64_t start = stream.Position();
  std::string text(static_cast<size_t>(std::max<int64_t>(stream.Size() - start, 0)), '\0');
  text.resize(stream.Read(text.data(), text.size()));
  stream.SeekTo(start + static_cast<int64_t>(ParseSoupText(container, text, isUtf8)));
}

}  // namespace morvex
