#include "tagdata/kuid.h"

#include "engine/byte_reader.h"
#include "tagdata/stream.h"

namespace morvex {
namespace {

constexpr uint32_t kUserMask = 0x1FFFFFF;
constexpr uint32_t kUserSign = 0x1000000;
constexpr uint32_t kUserSignExtension = 0xFE000000;
constexpr int kVersionShift = 25;

void PutU32(KUID::Bytes& bytes, size_t offset, uint32_t value) {
  for (size_t i = 0; i < 4; ++i)
    bytes[offset + i] = static_cast<uint8_t>(value >> (8 * i));
}

}  // namespace

std::atomic<int32_t> currentAuthorId{KUID::kTemporaryAuthor};

bool KUID::IsLocalAuthor() const {
  const int32_t author = currentAuthorId;
  return IsTemporaryAuthor() || (author != -1 && author == userId);
}

void KUID::Pack(uint32_t& word, int32_t& content) const {
  word = version << kVersionShift | (static_cast<uint32_t>(userId) & kUserMask);
  content = contentId;
}

// The packed user id has 25 bits with its sign, one less than the ids that are valid in memory.
void KUID::Unpack(uint32_t word, int32_t content) {
  uint32_t user = word & kUserMask;
  if ((user & kUserSign) != 0) user |= kUserSignExtension;
  userId = static_cast<int32_t>(user);
  contentId = content;
  version = word >> kVersionShift;
}

KUID::Bytes KUID::ToChunkData() const {
  uint32_t word = 0;
  int32_t content = 0;
  Pack(word, content);
  Bytes bytes;
  PutU32(bytes, 0, word);
  PutU32(bytes, 4, static_cast<uint32_t>(content));
  return bytes;
}

KUID KUID::FromChunkData(const Bytes& bytes) {
  Nox::ByteReader in(bytes);
  const uint32_t word = in.U32();
  KUID kuid;
  kuid.Unpack(word, in.I32());
  return kuid;
}

void KUID::WriteTo(TStream& stream) const {
  uint32_t word = 0;
  int32_t content = 0;
  Pack(word, content);
  stream.WriteU32s(static_cast<uint32_t>(content), word);
}

// The records that hold KUIDs all go on behind them, so one that ends the stream counts as cut off.
void KUID::ReadFrom(TStream& stream) {
  uint32_t content = 0;
  uint32_t word = 0;
  stream.ReadU32s(content, word);
  Unpack(word, static_cast<int32_t>(content));
  if (stream.ReadAheadEmpty() && stream.AtEnd()) *this = KUID();
}

}  // namespace morvex
