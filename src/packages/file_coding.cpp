#include "packages/file_coding.h"

#include <new>
#include <span>
#include <utility>

#include "engine/byte_reader.h"
#include "engine/file.h"
#include "packages/lzss_block.h"
#include "packages/lzss_bytes.h"
#include "packages/lzss_format.h"
#include "packages/package_tags.h"
#include "tagdata/chunk_format.h"

namespace morvex {
namespace {

using Block = std::unique_ptr<uint8_t[]>;

constexpr size_t kPrefix = sizeof(uint32_t);
// The stored form of an incompressible file has one byte more than the file.
constexpr size_t kRoomForStored = 1;

// No LZSS stream gives more bytes than this for each of its own: a match is at least 13 bits for 259 bytes.
constexpr uint64_t kMaxExpansion = 160;

// Uninitialised; null if there is no memory.
Block TakeMemory(size_t size) {
  return Block(new (std::nothrow) uint8_t[size]);
}

Raw CodeLzss(std::span<const uint8_t> plain) {
  const size_t capacity = plain.size() + kRoomForStored;
  const Block block = TakeMemory(kPrefix + capacity);
  if (block == nullptr) return {};
  Nox::LzssStore32(block.get(), static_cast<uint32_t>(plain.size()));
  const size_t coded = Nox::LzssCompressInto({block.get() + kPrefix, capacity}, plain, Nox::kLzssMaxLevel);
  return ACSRawDataCore::CopyBytes(block.get(), kPrefix + coded);
}

PlainFile DecodeLzss(std::span<const uint8_t> coded) {
  Nox::ByteReader reader(coded);
  const uint32_t expected = reader.U32();
  const std::span<const uint8_t> stream = reader.Bytes(reader.Remaining());
  // What the stream can't give isn't asked of the memory either.
  if (stream.empty() || expected > kMaxExpansion * stream.size()) return {CodingFailure::kDamaged};
  Block block = TakeMemory(expected);
  if (block == nullptr) return {CodingFailure::kTooLarge};
  if (Nox::LzssDecompressInto({block.get(), expected}, stream) != expected) return {CodingFailure::kDamaged};
  const uint8_t* data = block.get();
  return {CodingFailure::kNone, data, expected, std::move(block)};
}

}  // namespace

CodedFile CodeFile(Nox::LocationView path, std::string_view compression) {
  Nox::File file;
  if (!file.Open(path, Nox::OpenMode::kRead)) return {CodingFailure::kUnreadable, {}};
  const uint64_t size = file.Size();
  if (size > kMaxChumpBody - kPrefix - kRoomForStored) return {CodingFailure::kTooLarge, {}};
  Block plain = TakeMemory(size);
  if (plain == nullptr) return {CodingFailure::kTooLarge, {}};
  if (file.Read(plain.get(), size) != size) return {CodingFailure::kUnreadable, {}};
  file.Close();

  if (compression.empty()) {
    return {CodingFailure::kNone, ACSRawDataCore::TakeBytes(std::move(plain), static_cast<uint32_t>(size))};
  }
  if (compression != kLzssCompression) return {CodingFailure::kUnknownCompression, {}};
  Raw coded = CodeLzss({plain.get(), size});
  if (!coded) return {CodingFailure::kTooLarge, {}};
  return {CodingFailure::kNone, std::move(coded)};
}

PlainFile DecodeFile(const Raw& raw, std::string_view compression) {
  if (compression.empty()) return {CodingFailure::kNone, RawData(raw), RawSize(raw)};
  if (compression != kLzssCompression) return {CodingFailure::kUnknownCompression};
  return DecodeLzss({RawData(raw), RawSize(raw)});
}

}  // namespace morvex
