#include "database/catalogue/record_codec.h"

#include <bit>
#include <cstring>

#include "database/catalogue/index_format.h"

namespace morvex {
namespace {

uint32_t U32At(const uint8_t* at) {
  return static_cast<uint32_t>(at[0]) | static_cast<uint32_t>(at[1]) << 8 |
         static_cast<uint32_t>(at[2]) << 16 | static_cast<uint32_t>(at[3]) << 24;
}

uint64_t U64At(const uint8_t* at) {
  return U32At(at) | static_cast<uint64_t>(U32At(at + 4)) << 32;
}

uint8_t* PutU32(uint8_t* at, uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8)
    *at++ = static_cast<uint8_t>(value >> shift);
  return at;
}

uint8_t* PutU64(uint8_t* at, uint64_t value) {
  at = PutU32(at, static_cast<uint32_t>(value));
  return PutU32(at, static_cast<uint32_t>(value >> 32));
}

std::string_view TextOf(const uint8_t* bytes, uint32_t count) {
  if (count == 0 || count > kMaxIndexString) return {};
  const void* end = std::memchr(bytes, 0, count);
  const size_t length =
      end == nullptr ? count : static_cast<size_t>(static_cast<const uint8_t*>(end) - bytes);
  return {reinterpret_cast<const char*>(bytes), length};
}

// The field at `at` as a text; `at` moves behind it.
std::string_view TakeText(const uint8_t*& at) {
  const uint32_t count = U32At(at);
  const std::string_view text = TextOf(at + 4, count);
  at += 4 + static_cast<size_t>(count);
  return text;
}

// Eight bytes at once: a number times this has the lowest bit of each of its bytes in its top byte.
constexpr uint64_t kGatherBits = 0x0102040810204080;
constexpr uint64_t kPlainBits = 0x0101010101010101;

uint8_t TakeBits(const uint8_t* at, bool& plain) {
  uint64_t bytes = U64At(at);
  if ((bytes & ~kPlainBits) != 0) {
    plain = false;
    for (int bit = 0; bit < 64; bit += 8) {
      if ((bytes >> bit & 0xFF) != 0) bytes |= uint64_t{1} << bit;
    }
    bytes &= kPlainBits;
  }
  return static_cast<uint8_t>(bytes * kGatherBits >> 56);
}

uint8_t* PutBits(uint8_t* at, uint8_t bits) {
  for (int bit = 0; bit < 8; ++bit)
    *at++ = bits >> bit & 1;
  return at;
}

}  // namespace

std::string_view ReadIndexString(Nox::ByteReader& in) {
  const uint32_t count = in.U32();
  const auto bytes = in.Bytes(count);
  return in.Failed() ? std::string_view() : TextOf(bytes.data(), count);
}

KUID KuidAt(const uint8_t* bytes) {
  KUID kuid;
  kuid.Unpack(U32At(bytes + 4), static_cast<int32_t>(U32At(bytes)));
  return kuid;
}

KUID ReadIndexKuid(Nox::ByteReader& in) {
  const auto bytes = in.Bytes(KUID::kBinarySize);
  return in.Failed() ? KUID() : KuidAt(bytes.data());
}

uint8_t* PutIndexKuid(uint8_t* at, const KUID& kuid) {
  uint32_t word = 0;
  int32_t content = 0;
  kuid.Pack(word, content);
  at = PutU32(at, static_cast<uint32_t>(content));
  return PutU32(at, word);
}

size_t IndexStringSize(std::string_view text) {
  return text.empty() || text.size() >= kMaxIndexString ? 4 : 4 + text.size() + 1;
}

uint8_t* PutIndexString(uint8_t* at, std::string_view text) {
  const size_t size = IndexStringSize(text);
  at = PutU32(at, static_cast<uint32_t>(size - 4));
  if (size == 4) return at;
  std::memcpy(at, text.data(), text.size());
  at[text.size()] = 0;
  return at + text.size() + 1;
}

FixedPart DecodeFixed(const uint8_t* bytes) {
  FixedPart fixed;
  fixed.numbers.mapKuid = KuidAt(bytes);
  const uint8_t* at = bytes + KUID::kBinarySize;
  fixed.stateFlags = TakeBits(at, fixed.plainFlags);
  fixed.statusFlags = TakeBits(at + 8, fixed.plainFlags);
  at += 16;
  fixed.permitListing = *at != 0;
  fixed.plainFlags = fixed.plainFlags && *at <= 1;
  fixed.folderSize = U32At(at + 1);
  fixed.numbers.build = std::bit_cast<float>(U32At(at + 5));
  fixed.rating = static_cast<int8_t>(at[9]);
  fixed.numbers.installedTime = U64At(at + 10);
  fixed.numbers.modifiedTime = U64At(at + 18);
  return fixed;
}

void EncodeFixed(const FixedPart& fixed, uint8_t* bytes) {
  uint8_t* at = PutIndexKuid(bytes, fixed.numbers.mapKuid);
  at = PutBits(at, fixed.stateFlags);
  at = PutBits(at, fixed.statusFlags);
  *at++ = fixed.permitListing ? 1 : 0;
  at = PutU32(at, fixed.folderSize);
  at = PutU32(at, std::bit_cast<uint32_t>(fixed.numbers.build));
  *at++ = static_cast<uint8_t>(fixed.rating);
  at = PutU64(at, fixed.numbers.installedTime);
  PutU64(at, fixed.numbers.modifiedTime);
}

std::string_view TextIn(const uint8_t* record, uint32_t fixedAt, size_t which) {
  const bool behind = which >= kTextsBeforeFixed;
  const uint8_t* at = behind ? record + fixedAt + kFixedSize : record + KUID::kBinarySize;
  for (size_t skip = behind ? which - kTextsBeforeFixed : which; skip > 0; --skip)
    at += 4 + static_cast<size_t>(U32At(at));
  return TakeText(at);
}

AssetTexts TextsIn(const uint8_t* record, uint32_t fixedAt) {
  AssetTexts texts;
  const uint8_t* at = record + KUID::kBinarySize;
  for (size_t i = 0; i < kAssetTextCount; ++i) {
    if (i == kTextsBeforeFixed) at = record + fixedAt + kFixedSize;
    texts[i] = TakeText(at);
  }
  return texts;
}

}  // namespace morvex
