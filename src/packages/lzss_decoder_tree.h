#pragma once

#include <array>
#include <cstdint>

#include "packages/lzss_tree.h"

namespace Nox {

// The tree on the reading side. The uppermost nodes seldom change; while they don't, a table leads past them.
class LzssDecoderTree final : private LzssTree {
 public:
  explicit LzssDecoderTree(unsigned symbols) : LzssTree(symbols) {}

  // Takes one symbol from the low end of `bits`, of which at least kMaxCodeBits must be there, counts it, and
  // says in `used` how many bits it had.
  unsigned Decode(std::uint64_t bits, unsigned& used) {
    const Way way = WayOf(bits);
    std::size_t child = way.child;
    unsigned steps = way.steps;
    bits >>= steps;
    while (child < kFirstLeaf) {
      child = child_[child + (bits & 1)];
      bits >>= 1;
      ++steps;
    }
    used = steps;
    const auto symbol = static_cast<unsigned>(child - kFirstLeaf);
    CountDecoded(symbol, steps);
    return symbol;
  }

 private:
  // Where some steps down from the root have led: a value of child_.
  struct Way {
    std::uint32_t child;
    std::uint32_t steps;
  };

  static constexpr unsigned kTableBits = 5;
  // Symbols without a change before the table is made.
  static constexpr unsigned kWait = 8;

  // The first steps that `bits` lead.
  Way WayOf(std::uint64_t bits) {
    if (unchanged_ == kWait) [[likely]]
      return table_[bits % table_.size()];
    if (++unchanged_ == kWait) FillTable();
    return {child_[kRoot], 0};
  }
  void CountDecoded(unsigned symbol, unsigned steps) {
    if (RebuildIsDue()) [[unlikely]] {
      Rebuild();
      unchanged_ = 0;
    }
    if (Count(symbol, steps) >= lowest_) unchanged_ = 0;
  }
  void FillTable();

  unsigned unchanged_ = 0;  // symbols since the last change among the uppermost nodes, up to kWait
  std::array<Way, 1U << kTableBits> table_;
  // Of the places that the table leads past. Depth and place needn't agree among nodes of the same weight.
  unsigned lowest_ = kRoot;
};

}  // namespace Nox
