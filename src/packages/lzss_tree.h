#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "packages/lzss_format.h"

namespace Nox {

// An adaptive Huffman tree. The nodes stand in one row by rising weight, siblings side by side (the first at
// an even place), the root last; so a node that grows heavier than its right neighbour changes places with
// the last of the lighter ones. Both sides of the codec count each symbol behind its coding and so keep equal
// trees. The derived classes add what a side needs to find its way between symbols and bits.
//
// Counting takes most of the codec's time, and most of that goes into branches that the machine can't
// foretell. So a node finds the place it moves to in a table, without a search; a leaf, which in a flat tree
// moves nearly always and in a steep one hardly ever, does so without a branch; and the way up goes by
// several steps at a time.
class LzssTree {
 public:
  // No code is longer: a leaf that deep would need a weight above kMaxWeight at the root.
  static constexpr unsigned kMaxCodeBits = 21;

 protected:
  static constexpr unsigned kMaxLeaves = (kLzssMainSymbols + 1) & ~1U;
  // The root's place. A tree of fewer leaves has its row at the same end.
  static constexpr unsigned kRoot = 2 * kMaxLeaves - 2;
  // In child_, values from here on are symbols.
  static constexpr unsigned kFirstLeaf = kRoot + 1;

  explicit LzssTree(unsigned symbols);
  ~LzssTree() = default;

  bool IsLeaf(std::size_t node) const { return child_[node] >= kFirstLeaf; }

  // To be asked before each Count: the tree must forget half of what it has counted.
  bool RebuildIsDue() const { return total_ == kMaxWeight; }
  void Rebuild();

  // Counts `symbol`, whose code had `steps` bits. Gives the highest place to which a node has moved, or 0.
  std::size_t Count(unsigned symbol, unsigned steps);
  // Told by Count: another inner node now stands at `node`.
  virtual void InnerMoved([[maybe_unused]] std::size_t node) {}

  std::array<std::uint16_t, kRoot + 1> child_;      // the first of two, or a symbol
  std::array<std::uint16_t, kMaxLeaves> leafNode_;  // a symbol's node

 private:
  static constexpr unsigned kMaxWeight = 32768;
  static constexpr unsigned kStepsAtOnce = 4;
  // Behind the root stand nodes that count nothing, for steps that lead further; the last leads to itself.
  static constexpr unsigned kLastBeyond = kRoot + kStepsAtOnce;

  std::size_t GrowLeaf(unsigned symbol, std::size_t& moved);
  std::size_t Grow(std::size_t node, std::size_t& moved);
  std::size_t MoveUp(std::size_t node);
  void Swap(std::size_t a, std::size_t b);
  void TellChildren(std::size_t node);
  void IndexRow();
  unsigned MakePlace(unsigned& slot, unsigned weight, unsigned& leavesLeft);
  unsigned MakePlaceBelow(unsigned slot, unsigned weight);

  const unsigned first_;  // node of the row
  unsigned total_;        // the root's weight; in weight_ it has one that no other node reaches
  std::array<std::uint32_t, kLastBeyond + 2> weight_;
  std::array<std::uint16_t, kLastBeyond + 1> up_;     // a node's parent
  std::array<std::uint32_t, kMaxLeaves> leafWeight_;  // a symbol's weight, the same as its node's
  // For a weight, the node behind all that weigh no more. When one of these grows, it comes to the last place
  // among them, and that place is then behind the others.
  std::array<std::uint16_t, kMaxWeight + kStepsAtOnce + 2> behind_;
};

// Adds 1 to a leaf, and gives the place where it then is. One that needn't move changes places with itself.
// The weight is looked up by the symbol, so that it needn't wait for the node.
inline std::size_t LzssTree::GrowLeaf(unsigned symbol, std::size_t& moved) {
  const std::size_t weight = leafWeight_[symbol]++;
  const std::size_t place = --behind_[weight];
  weight_[place] = static_cast<std::uint32_t>(weight + 1);
  const std::size_t node = leafNode_[symbol];
  moved = place == node ? 0 : place;
  const std::uint16_t other = child_[place];
  if (other < kFirstLeaf) [[unlikely]] {
    Swap(node, place);
    return place;
  }
  child_[node] = other;
  child_[place] = static_cast<std::uint16_t>(kFirstLeaf + symbol);
  leafNode_[other - kFirstLeaf] = static_cast<std::uint16_t>(node);
  leafNode_[symbol] = static_cast<std::uint16_t>(place);
  return place;
}

// The same for an inner node.
inline std::size_t LzssTree::Grow(std::size_t node, std::size_t& moved) {
  const std::uint32_t weight = weight_[node];
  if (weight_[node + 1] == weight) [[unlikely]] {
    return moved = MoveUp(node);
  }
  --behind_[weight];
  const std::size_t belowRoot = (node - kRoot) >> (8 * sizeof node - 1);  // 1 or 0
  weight_[node] = weight + static_cast<std::uint32_t>(belowRoot);
  return node;
}

// The number of fours is easier to foretell than that of single steps, and `steps` is known before the nodes
// on the way are. A leaf that moves may have another number: then the rest follows, or some count nothing.
inline std::size_t LzssTree::Count(unsigned symbol, unsigned steps) {
  std::size_t moved = 0;
  std::size_t node = up_[GrowLeaf(symbol, moved)];
  unsigned done = 1;
  do {
    node = up_[Grow(node, moved)];
    node = up_[Grow(node, moved)];
    node = up_[Grow(node, moved)];
    node = up_[Grow(node, moved)];
    done += kStepsAtOnce;
  } while (done < steps);
  while (node < kRoot)
    node = up_[Grow(node, moved)];
  behind_[total_++] = kRoot;
  return moved;
}

}  // namespace Nox
