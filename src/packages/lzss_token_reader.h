#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "packages/lzss_output.h"

namespace Nox {

// One coding of the stream, read. Input may come in pieces.
class LzssTokenReader {
 public:
  enum class Status {
    kMore,     // stopped at a token's end, with no more than the reserve left
    kDone,     // the stream is complete; what may follow isn't part of it
    kDamaged,  // or the output could not take it
  };
  // With this many bytes ahead no token is cut: flag words within and before it, and a run of literals.
  static constexpr std::size_t kReserve = 4 + 4 + 1 + kLzssMaxRun;

  virtual ~LzssTokenReader() = default;

  // Decodes while more than `reserve` bytes of input are left, and takes the bytes used off its front. With a
  // reserve of 0, which says that no more input will come, the answer is never kMore.
  virtual Status Read(std::span<const std::uint8_t>& input, std::size_t reserve, LzssOutput& output) = 0;
};

// The reader for a header, or null for one that no stream has (stored data need none either).
[[nodiscard]] std::unique_ptr<LzssTokenReader> MakeLzssTokenReader(std::uint8_t header);

}  // namespace Nox
