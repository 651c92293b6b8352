#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Nox {

// Whole blocks through the LZSS codec. All of these may run on several threads at once.

// Codes `src` into `dst`: a result of at most dst.size() is the bytes placed there. If nothing usable fits,
// the result is src.size(); one byte more than src always suffices. A level outside 0 to 9 counts as 9.
[[nodiscard]] std::size_t LzssCompressInto(std::span<std::uint8_t> dst, std::span<const std::uint8_t> src,
                                           int level);

// Decodes into `dst`; gives the bytes written, or Compressor::kDamaged for a stream that is damaged or too
// long. `dst` then holds what could be read.
[[nodiscard]] std::size_t LzssDecompressInto(std::span<std::uint8_t> dst, std::span<const std::uint8_t> src);

// Decodes into `out`, which becomes as long as `expectedSize`. False for a damaged stream and for one of any
// other length; `out` is then empty. Memory grows only as the stream fills it.
[[nodiscard]] bool LzssDecompress(std::span<const std::uint8_t> src, std::size_t expectedSize,
                                  std::vector<std::uint8_t>& out);

}  // namespace Nox
