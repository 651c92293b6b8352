#include "tagdata/place_table.h"

#include <bit>
#include <utility>

namespace morvex {

// A third of the slots stays empty, so that runs stay short.
size_t PlaceTable::SlotsFor(size_t places) {
  return std::bit_ceil(places + places / 2 + 8);
}

void PlaceTable::Resize(size_t slots) {
  std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots));
  mask_ = slots - 1;
  for (const Slot& slot : old) {
    if (slot.place != kNone) Put(slot);
  }
}

void PlaceTable::Put(Slot slot) {
  size_t at = slot.hash & mask_;
  while (slots_[at].place != kNone)
    at = (at + 1) & mask_;
  slots_[at] = slot;
}

void PlaceTable::Add(uint32_t hash, uint32_t place) {
  ++used_;
  if (SlotsFor(used_) > slots_.size()) Resize(slots_.size() * 2);
  Put({hash, place});
}

void PlaceTable::Remove(uint32_t hash, uint32_t place) {
  size_t hole = hash & mask_;
  while (slots_[hole].place != place)
    hole = (hole + 1) & mask_;
  --used_;
  // Moves up what stands behind the hole and may not stand behind an empty slot.
  for (size_t at = (hole + 1) & mask_; slots_[at].place != kNone; at = (at + 1) & mask_) {
    const size_t home = slots_[at].hash & mask_;
    if (((at - home) & mask_) < ((at - hole) & mask_)) continue;
    slots_[hole] = slots_[at];
    hole = at;
  }
  slots_[hole] = Slot();
}

}  // namespace morvex
