#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "packages/lzss_sink.h"

namespace Nox {

// One coding of the stream, seen from the match loop. Failures show in the sink.
class LzssTokenWriter {
 public:
  virtual ~LzssTokenWriter() = default;
  // At most kLzssMaxRun bytes.
  virtual void Literals(std::span<const std::uint8_t> bytes) = 0;
  virtual void Match(unsigned length, unsigned offset) = 0;
  // Writes what is held back, and the end.
  virtual void Finish() = 0;
};

// The writer for a header's level (1 to 9) and window; it keeps a reference to the sink.
[[nodiscard]] std::unique_ptr<LzssTokenWriter> MakeLzssTokenWriter(int level, unsigned windowId,
                                                                   LzssSink& sink);

}  // namespace Nox
