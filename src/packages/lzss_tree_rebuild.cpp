#include "packages/lzss_tree.h"

namespace Nox {
namespace {

// In up_: no parent has been given yet.
constexpr std::uint16_t kFree = 0xFFFE;

}  // namespace

// Halves the leaves' weights, so that the tree forgets what is long past, and builds the inner nodes anew by
// pairing the two lightest nodes without a parent again and again. Leaves stay where they are as far as
// possible. The order in which nodes of one weight end up is part of the format.
void LzssTree::Rebuild() {
  for (unsigned i = first_; i <= kRoot; ++i) {
    if (IsLeaf(i)) weight_[i] = (weight_[i] + 1) >> 1;
    up_[i] = kFree;
  }

  unsigned leavesLeft = (kRoot + 2 - first_) / 2;  // that stand at `slot` or above it
  unsigned slot = first_;                          // where the next inner node is looked for
  for (unsigned scan = first_;;) {
    while (up_[scan] != kFree)
      ++scan;
    if (scan == kRoot) break;
    const unsigned left = scan;
    scan += 2;

    while (slot < kRoot && (IsLeaf(slot) || up_[slot] != kFree)) {
      if (IsLeaf(slot)) --leavesLeft;
      ++slot;
    }
    const unsigned weight = weight_[left] + weight_[left + 1];
    const unsigned place = MakePlace(slot, weight, leavesLeft);
    weight_[place] = weight;
    child_[place] = static_cast<std::uint16_t>(left);
    up_[left] = up_[left + 1] = static_cast<std::uint16_t>(place);
  }
  IndexRow();
}

// Gives the place for an inner node of `weight`, about at `slot`, and moves `slot` behind what now stands.
unsigned LzssTree::MakePlace(unsigned& slot, unsigned weight, unsigned& leavesLeft) {
  unsigned place = slot++;
  if (weight_[place - 1] > weight) return MakePlaceBelow(place, weight);
  // Leaves further up that are lighter come down in front of the new node.
  for (unsigned cursor = slot; leavesLeft != 0; --leavesLeft) {
    while (cursor < kRoot && !IsLeaf(cursor))
      ++cursor;
    if (cursor >= kRoot || weight_[cursor] >= weight) break;
    weight_[place] = weight_[cursor];
    child_[place] = child_[cursor];
    up_[place] = kFree;
    TellChildren(place);
    child_[cursor] = 0;
    place = slot++;
  }
  return place;
}

// Moves the heavier nodes below `slot` up by one.
unsigned LzssTree::MakePlaceBelow(unsigned slot, unsigned weight) {
  unsigned place = slot;
  for (; place > first_ && weight_[place - 1] > weight; --place) {
    weight_[place] = weight_[place - 1];
    child_[place] = child_[place - 1];
    TellChildren(place);
  }
  return place;
}

}  // namespace Nox
