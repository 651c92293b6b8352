#include "database/catalogue/kuid_index.h"

#include <utility>

namespace morvex {

void KuidIndex::Erase(const KUID& kuid, uint32_t number) {
  size_t hole = SlotOf(kuid, number);
  // Entries behind the hole move up unless they would come to stand in front of their home.
  for (size_t at = Next(hole); slots_[at].number != kNone; at = Next(at)) {
    if (Distance(Home(slots_[at].hash), at) < Distance(hole, at)) continue;
    slots_[hole] = slots_[at];
    hole = at;
  }
  slots_[hole] = Slot();
  --size_;
}

void KuidIndex::Reserve(size_t count) {
  size_t wanted = kSmallest;
  while (count * 3 > wanted * 2)
    wanted *= 2;
  if (wanted > slots_.size()) Grow(wanted);
}

void KuidIndex::Grow(size_t wanted) {
  const std::vector<Slot> old =
      std::exchange(slots_, std::vector<Slot>(wanted < kSmallest ? kSmallest : wanted));
  for (const Slot& slot : old) {
    if (slot.number != kNone) Place(slot);
  }
}

}  // namespace morvex
