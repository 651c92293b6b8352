// Any bytes as an LZSS stream, decoded whole and in pieces, which must agree; and as data, which must come
// back from every coding.

#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "packages/lzss_block.h"
#include "packages/lzss_compress.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kMaxPlain = 1 << 16;

void DecodeBothWays(std::span<const std::uint8_t> stream) {
  Bytes plain(kMaxPlain);
  const std::size_t size = Nox::LzssDecompressInto(plain, stream);
  if (size == Nox::Compressor::kDamaged) return;
  Bytes grown;
  if (!Nox::LzssDecompress(stream, size, grown)) std::abort();
  plain.resize(size);
  if (plain != grown) std::abort();

  Bytes inPieces;
  Nox::LZSSCompress lzss;
  lzss.InitStreamDecompress(
      [&inPieces](auto bytes) { return inPieces.insert(inPieces.end(), bytes.begin(), bytes.end()), true; });
  for (const std::uint8_t& byte : stream)
    lzss.StreamDecompress(&byte, 1);
  if (!lzss.DoneStreamDecompress() || inPieces != plain) std::abort();
}

void CodeAndDecode(std::span<const std::uint8_t> data, int level) {
  Bytes coded(data.size() + 1);
  coded.resize(Nox::LzssCompressInto(coded, data, level));
  Bytes plain;
  if (!Nox::LzssDecompress(coded, data.size(), plain)) std::abort();
  if (plain != Bytes(data.begin(), data.end())) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);
  DecodeBothWays(bytes);
  CodeAndDecode(bytes, size == 0 ? 0 : data[0] % 10);
  return 0;
}
