#include "packages/lzss_tree.h"

#include <utility>

namespace Nox {

LzssTree::LzssTree(unsigned symbols) : leaves_((symbols + 1) & ~1U), root_(2 * leaves_ - 2) {
  for (unsigned i = 0; i < leaves_; ++i) {
    weight_[i] = 1;
    child_[i] = static_cast<std::uint16_t>(LeafOf(i));
    TellChildren(i);
  }
  for (unsigned i = leaves_, child = 0; i <= root_; ++i, child += 2) {
    weight_[i] = static_cast<std::uint16_t>(weight_[child] + weight_[child + 1]);
    child_[i] = static_cast<std::uint16_t>(child);
    TellChildren(i);
  }
}

// Lets a node that has grown change places with the last lighter one, and gives its new place. The root is
// heavier than all others, so the search ends there at the latest.
unsigned LzssTree::MoveUp(unsigned node) {
  const unsigned weight = weight_[node];
  unsigned target = node + 1;
  while (weight_[target + 1] < weight)
    ++target;
  std::swap(weight_[node], weight_[target]);
  std::swap(child_[node], child_[target]);
  TellChildren(node);
  TellChildren(target);
  return target;
}

// `path` leads down to a leaf and has counted without moving anything; at `move` is the lowest node that must
// move. What stands above it was counted too early: takes that back, and counts on along the way that the moved
// node has.
void LzssTree::Recount(const Path& path, unsigned move) {
  for (unsigned i = 0; i < move; ++i)
    --weight_[path[i]];
  CountFrom(up_[MoveUp(path[move])]);
}

LzssCode LzssTree::EncodeAndRebuild(unsigned symbol) {
  const LzssCode code = CodeOf(symbol);
  Rebuild();
  Count(up_[LeafOf(symbol)]);
  return code;
}

unsigned LzssTree::DecodeAndRebuild(std::uint64_t bits, unsigned& used) {
  unsigned child = child_[root_];
  for (used = 0; child < kFirstLeaf; ++used, bits >>= 1) {
    child = child_[child + static_cast<unsigned>(bits & 1)];
  }
  const unsigned symbol = SymbolOf(child);
  Rebuild();
  Count(up_[LeafOf(symbol)]);
  return symbol;
}

}  // namespace Nox
