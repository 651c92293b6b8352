#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "packages/lzss_bytes.h"

namespace Nox {

// Reads what LzssBitWriter wrote, from input that may come in pieces. Behind the end of the input stand
// 0 bits without number; Overrun tells that some of them were taken.
class LzssBitReader {
 public:
  // Goes on with `input`, whose first byte is the one behind the last that was taken.
  void Begin(std::span<const std::uint8_t> input) {
    begin_ = next_ = input.data();
    end_ = begin_ + input.size();
  }
  // Bytes of the present input not taken yet.
  std::size_t Remaining() const { return static_cast<std::size_t>(end_ - next_); }
  // Ends the present input; gives the number of bytes taken from it.
  std::size_t End() {
    const auto taken = static_cast<std::size_t>(next_ - begin_);
    takenBefore_ += taken;
    begin_ = next_;
    return taken;
  }

  // Makes at least 32 bits available.
  void Need32() {
    if (count_ < 32) Refill();
  }
  std::uint64_t Peek() const { return bits_; }
  void Drop(unsigned count) {
    bits_ >>= count;
    count_ -= count;
  }
  // At most as many bits as are available.
  std::uint32_t Take(unsigned count) {
    const auto value = static_cast<std::uint32_t>(bits_ & ((std::uint64_t{1} << count) - 1));
    Drop(count);
    return value;
  }

  bool Overrun() const { return count_ < 8 * beyond_; }
  // True if the 16-bit word of the last bit taken is there in full.
  bool WordIsWhole() const {
    const std::size_t real = takenBefore_ + static_cast<std::size_t>(next_ - begin_);
    const std::size_t bitsTaken = 8 * (real + beyond_) - count_;
    return (bitsTaken + 15) / 16 * 2 <= real + Remaining();
  }

 private:
  void Refill() {
    if (Remaining() >= 8) {
      // Bits above count_ may be set, but only to what really follows, so setting them again does no harm.
      bits_ |= LzssLoad64(next_) << count_;
      const unsigned bytes = (63 - count_) / 8;
      next_ += bytes;
      count_ += 8 * bytes;
      return;
    }
    for (; count_ <= 56; count_ += 8) {
      if (next_ != end_) {
        bits_ |= std::uint64_t{*next_++} << count_;
      } else {
        ++beyond_;
      }
    }
  }

  const std::uint8_t* begin_ = nullptr;
  const std::uint8_t* next_ = nullptr;
  const std::uint8_t* end_ = nullptr;
  std::uint64_t bits_ = 0;
  unsigned count_ = 0;
  unsigned beyond_ = 0;  // 0 bytes made up behind the end
  std::size_t takenBefore_ = 0;
};

}  // namespace Nox
