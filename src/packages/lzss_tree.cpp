#include "packages/lzss_tree.h"

#include <algorithm>
#include <cassert>

namespace Nox {

LzssTree::LzssTree(unsigned symbols) : first_(kRoot + 2 - 2 * ((symbols + 1) & ~1U)) {
  unsigned node = first_;
  for (unsigned leaf = kFirstLeaf; leaf < kFirstLeaf + (symbols + 1) / 2 * 2; ++leaf, ++node) {
    weight_[node] = 1;
    child_[node] = static_cast<std::uint16_t>(leaf);
    TellChildren(node);
  }
  for (unsigned child = first_; node <= kRoot; child += 2, ++node) {
    weight_[node] = weight_[child] + weight_[child + 1];
    child_[node] = static_cast<std::uint16_t>(child);
    TellChildren(node);
  }
  IndexRow();
}

// Makes what follows from the row's weights.
void LzssTree::IndexRow() {
  total_ = weight_[kRoot];
  unsigned weight = 0;
  for (unsigned node = first_; node <= kRoot; ++node) {
    assert(weight <= weight_[node]);
    std::fill(behind_.begin() + weight, behind_.begin() + weight_[node], static_cast<std::uint16_t>(node));
    weight = weight_[node];
    if (IsLeaf(node)) leafWeight_[child_[node] - kFirstLeaf] = weight;
  }
  for (unsigned node = kRoot; node <= kLastBeyond; ++node) {
    weight_[node] = kMaxWeight + 1 + (node - kRoot);
    behind_[weight_[node]] = 0;  // means nothing, but is counted like others
    up_[node] = static_cast<std::uint16_t>(std::min(node + 1, kLastBeyond));
  }
  weight_[kLastBeyond + 1] = 0;
}

void LzssTree::TellChildren(std::size_t node) {
  const std::size_t child = child_[node];
  if (child >= kFirstLeaf) {
    leafNode_[child - kFirstLeaf] = static_cast<std::uint16_t>(node);
  } else {
    up_[child] = up_[child + 1] = static_cast<std::uint16_t>(node);
  }
}

void LzssTree::Swap(std::size_t a, std::size_t b) {
  std::swap(child_[a], child_[b]);
  TellChildren(a);
  TellChildren(b);
  for (const std::size_t node : {b, a}) {
    if (!IsLeaf(node)) InnerMoved(node);
  }
}

std::size_t LzssTree::MoveUp(std::size_t node) {
  const std::uint32_t weight = weight_[node];
  const std::size_t place = --behind_[weight];
  weight_[place] = weight + 1;
  Swap(node, place);
  return place;
}

}  // namespace Nox
