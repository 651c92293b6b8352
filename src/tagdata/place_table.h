#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace morvex {

// A hash table of places (indexes into a list that the caller keeps), found by the hash of what stands
// there. The caller compares the things themselves. Grows by itself; holds up to 2^31 places.
class PlaceTable {
 public:
  static constexpr uint32_t kNone = 0xFFFFFFFF;

  explicit PlaceTable(size_t expected = 0) { Resize(SlotsFor(expected)); }

  // The first place with that hash for which `same(place)` holds, or kNone.
  template <typename Same>
  uint32_t Find(uint32_t hash, Same same) const {
    for (size_t at = hash & mask_; slots_[at].place != kNone; at = (at + 1) & mask_) {
      if (slots_[at].hash == hash && same(slots_[at].place)) return slots_[at].place;
    }
    return kNone;
  }

  void Add(uint32_t hash, uint32_t place);
  // The place must be there, under that hash.
  void Remove(uint32_t hash, uint32_t place);

 private:
  struct Slot {
    uint32_t hash = 0;
    uint32_t place = kNone;
  };

  static size_t SlotsFor(size_t places);
  void Resize(size_t slots);
  void Put(Slot slot);

  std::vector<Slot> slots_;
  size_t mask_ = 0;
  size_t used_ = 0;
};

}  // namespace morvex
