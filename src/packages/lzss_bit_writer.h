#pragma once

#include <cstddef>
#include <cstdint>

#include "packages/lzss_sink.h"

namespace Nox {

// Writes values lowest bit first.
class LzssBitWriter {
 public:
  explicit LzssBitWriter(LzssSink& sink) : sink_(sink) {}

  // At most 56 bits; those of `bits` above are 0.
  void Put(std::uint64_t bits, unsigned count) {
    pending_ |= bits << count_;
    count_ += count;
    const unsigned whole = count_ / 8;
    sink_.PutLow(pending_, whole);
    bytes_ += whole;
    pending_ >>= 8 * whole;
    count_ %= 8;
  }

  // Ends the stream with 0 bits up to the end of a 16-bit word.
  void Finish() {
    if (count_ != 0) Put(0, 8 - count_);
    if (bytes_ % 2 != 0) Put(0, 8);
  }

 private:
  LzssSink& sink_;
  std::uint64_t pending_ = 0;
  unsigned count_ = 0;     // of the pending bits, below 8 between calls
  std::size_t bytes_ = 0;  // written
};

}  // namespace Nox
