#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "packages/lzss_sink.h"

namespace Nox {

// A batch of literals and then a match; either may be missing.
struct LzssToken {
  std::uint16_t literals;  // at most kLzssMaxRun
  std::uint16_t length;    // 0 for no match
  std::uint16_t offset;
};

// One coding of the stream, seen from the match loop. Failures show in the sink.
class LzssTokenWriter {
 public:
  virtual ~LzssTokenWriter() = default;
  // `data` is what the tokens stand for.
  virtual void Write(std::span<const LzssToken> tokens, const std::uint8_t* data) = 0;
  // Writes what is held back, and the end.
  virtual void Finish() = 0;
};

// The writer for a header's level (1 to 9) and window; it keeps a reference to the sink.
[[nodiscard]] std::unique_ptr<LzssTokenWriter> MakeLzssTokenWriter(int level, unsigned windowId,
                                                                   LzssSink& sink);

}  // namespace Nox
