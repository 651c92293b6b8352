#include "packages/lzss_tree.h"

#include <bit>
#include <utility>

namespace Nox {

LzssTree::LzssTree(unsigned symbols) : leaves_((symbols + 1) & ~1U), root_(2 * leaves_ - 2) {
  weight_.fill(0xFFFF);
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

LzssCode LzssTree::CodeOf(unsigned symbol) const {
  LzssCode code{0, 0};
  for (unsigned node = up_[LeafOf(symbol)]; node != root_; node = up_[node]) {
    code = {code.bits << 1 | (node & 1), code.count + 1};
  }
  return code;
}

// Lets a node that has grown change places with the last lighter one, and gives its new place. The root is
// heavier than all others, so the search ends there at the latest.
unsigned LzssTree::MoveUp(unsigned node) {
  const unsigned weight = weight_[node];
  unsigned target = node + 1;
  while (weight_[target + 1] < weight) ++target;
  std::swap(weight_[node], weight_[target]);
  std::swap(child_[node], child_[target]);
  TellChildren(node);
  TellChildren(target);
  return target;
}

// A way has counted without moving anything. `node` is the lowest on it that must move; what stood above it
// was counted too early. Takes that back and counts on along the way that the moved node has.
void LzssTree::Repair(unsigned node, const std::uint16_t* above, unsigned count) {
  for (unsigned i = 0; i < count; ++i)
    --weight_[above[i]];
  for (node = up_[MoveUp(node)]; node != root_; node = up_[node]) {
    const unsigned weight = ++weight_[node];
    if (weight_[node + 1] < weight) node = MoveUp(node);
  }
}

void LzssTree::Count(unsigned symbol) {
  for (unsigned node = up_[LeafOf(symbol)]; node != root_; node = up_[node]) {
    const unsigned weight = ++weight_[node];
    if (weight_[node + 1] < weight) node = MoveUp(node);
  }
  ++weight_[root_];
}

LzssCode LzssTree::EncodeAndRebuild(unsigned symbol) {
  const LzssCode code = CodeOf(symbol);
  Rebuild();
  Count(symbol);
  return code;
}

unsigned LzssTree::DecodeAndRebuild(std::uint64_t bits, unsigned& used) {
  unsigned child = child_[root_];
  for (used = 0; child < kFirstLeaf; ++used, bits >>= 1) {
    child = child_[child + static_cast<unsigned>(bits & 1)];
  }
  const unsigned symbol = SymbolOf(child);
  Rebuild();
  Count(symbol);
  return symbol;
}

}  // namespace Nox
