#pragma once

#include <cstdint>

#include "packages/lzss_sink.h"

namespace Nox {

// Writes values lowest bit first into little-endian words.
class LzssBitWriter {
 public:
  explicit LzssBitWriter(LzssSink& sink) : sink_(sink) {}

  // At most 32 bits.
  void Put(std::uint32_t bits, unsigned count) {
    pending_ |= std::uint64_t{bits} << count_;
    count_ += count;
    if (count_ < 32) return;
    sink_.Put32(static_cast<std::uint32_t>(pending_));
    pending_ >>= 32;
    count_ -= 32;
  }

  // Ends the stream with 0 bits up to the end of a 16-bit word.
  void Finish() {
    for (unsigned done = 0; done < count_; done += 16) {
      sink_.Put16(static_cast<std::uint32_t>(pending_ >> done) & 0xFFFF);
    }
    count_ = 0;
    pending_ = 0;
  }

 private:
  LzssSink& sink_;
  std::uint64_t pending_ = 0;
  unsigned count_ = 0;  // below 32 between calls
};

}  // namespace Nox
