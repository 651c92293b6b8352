#pragma once

#include <array>
#include <cassert>
#include <cstdint>

#include "packages/lzss_format.h"

namespace Nox {

// The bits of one symbol, the first bit of the stream lowest.
struct LzssCode {
  std::uint32_t bits;
  unsigned count;
};

// An adaptive Huffman tree. The nodes stand in one row by rising weight, siblings side by side (the first at
// an even place), the root last; so a node that grows heavier than its right neighbour changes places with
// the last of the lighter ones. Both sides count each symbol behind its coding and so keep equal trees.
class LzssTree {
 public:
  // No code is longer: a leaf that deep would need a weight above kMaxWeight at the root.
  static constexpr unsigned kMaxCodeBits = 21;

  explicit LzssTree(unsigned symbols);

  // The code of `symbol` in the tree as it stands.
  LzssCode CodeOf(unsigned symbol) const {
    LzssCode code{0, 0};
    for (unsigned node = up_[LeafOf(symbol)]; node != root_; node = up_[node]) {
      code = {code.bits << 1 | (node & 1), code.count + 1};
    }
    return code;
  }

  // The same, and counts the symbol.
  LzssCode Encode(unsigned symbol) {
    if (weight_[root_] == kMaxWeight) [[unlikely]] {
      return EncodeAndRebuild(symbol);
    }
    // Two ways up, so that the machine can be on both at once.
    const LzssCode code = CodeOf(symbol);
    Count(up_[LeafOf(symbol)]);
    return code;
  }

  // Takes one symbol from the low end of `bits`, of which at least kMaxCodeBits must be there, counts it, and
  // says in `used` how many bits it had.
  unsigned Decode(std::uint64_t bits, unsigned& used) {
    if (weight_[root_] == kMaxWeight) [[unlikely]] {
      return DecodeAndRebuild(bits, used);
    }
    // For most symbols no node has to move. So the way down counts as it goes, and notes only where the lowest
    // move is due; Recount then does what was wrong once more.
    unsigned child = child_[root_];
    unsigned steps = 0;
    unsigned move = kNoMove;
    Path path;
    do {
      const unsigned node = child + static_cast<unsigned>(bits & 1);
      bits >>= 1;
      child = child_[node];
      path[steps] = static_cast<std::uint16_t>(node);
      const unsigned weight = ++weight_[node];
      move = weight_[node + 1] < weight ? steps : move;
      ++steps;
    } while (child < kFirstLeaf);
    assert(steps <= kMaxCodeBits);
    ++weight_[root_];
    if (move != kNoMove) Recount(path, move);
    used = steps;
    return SymbolOf(child);
  }

 private:
  static constexpr unsigned kMaxLeaves = (kLzssMainSymbols + 1) & ~1U;
  static constexpr unsigned kMaxNodes = 2 * kMaxLeaves - 1;
  static constexpr unsigned kMaxWeight = 32768;
  static constexpr unsigned kNoMove = 255;

  // In child_, values from here on are symbols. They go by twos like pairs of siblings, so that whatever hangs
  // on a node can be told of its place by the same two stores into up_.
  static constexpr unsigned kFirstLeaf = (kMaxNodes + 1) & ~1U;

  using Path = std::array<std::uint16_t, 32>;

  static constexpr unsigned LeafOf(unsigned symbol) { return kFirstLeaf + 2 * symbol; }
  static constexpr unsigned SymbolOf(unsigned leaf) { return (leaf - kFirstLeaf) / 2; }
  bool IsLeaf(unsigned node) const { return child_[node] >= kFirstLeaf; }
  void TellChildren(unsigned node) {
    const unsigned child = child_[node];
    up_[child] = up_[child + 1] = static_cast<std::uint16_t>(node);
  }
  unsigned MoveUp(unsigned node);
  // Adds 1 to `node` and all above it but the root, and moves up what grows heavier than its neighbour.
  void CountFrom(unsigned node) {
    for (; node != root_; node = up_[node]) {
      const unsigned weight = ++weight_[node];
      if (weight_[node + 1] < weight) node = MoveUp(node);
    }
  }
  void Count(unsigned leafNode) {
    CountFrom(leafNode);
    ++weight_[root_];
  }
  void Recount(const Path& path, unsigned move);
  LzssCode EncodeAndRebuild(unsigned symbol);
  unsigned DecodeAndRebuild(std::uint64_t bits, unsigned& used);
  void Rebuild();
  unsigned MakePlace(unsigned& slot, unsigned weight, unsigned& leavesLeft);
  unsigned MakePlaceBelow(unsigned slot, unsigned weight);

  const unsigned leaves_;
  const unsigned root_;
  std::array<std::uint16_t, kMaxNodes> weight_;
  std::array<std::uint16_t, kMaxNodes> child_;                 // the first of two
  std::array<std::uint16_t, kFirstLeaf + 2 * kMaxLeaves> up_;  // a node's parent, a symbol's node
};

}  // namespace Nox
