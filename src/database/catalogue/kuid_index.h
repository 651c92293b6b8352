#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "tagdata/kuid.h"

namespace morvex {

// A hash table from KUIDs to numbers, by open addressing. It doesn't hold the KUIDs: the caller, who has them at
// the places that the numbers name, tells them apart. It holds the hashes, which keep it from asking in vain.
// Look-ups cost the same for a million entries as for ten.
class KuidIndex {
 public:
  static constexpr uint32_t kNone = 0xFFFFFFFF;

  // The number stored for `kuid`, or kNone. `kuidOf` gives the KUID of a number.
  template <typename KuidOf>
  uint32_t Find(const KUID& kuid, KuidOf kuidOf) const {
    if (slots_.empty()) return kNone;
    const uint32_t hash = HashOf(kuid);
    for (size_t at = Home(hash);; at = Next(at)) {
      const Slot& slot = slots_[at];
      if (slot.number == kNone) return kNone;
      if (slot.hash == hash && kuidOf(slot.number) == kuid) return slot.number;
    }
  }

  // The caller knows that `kuid` isn't there.
  void Insert(const KUID& kuid, uint32_t number) {
    if ((size_ + 1) * 3 > slots_.size() * 2) Grow(slots_.size() * 2);
    Place({HashOf(kuid), number});
    ++size_;
  }

  // Stores another number for a KUID that is there under `number`.
  void Replace(const KUID& kuid, uint32_t number, uint32_t with) {
    slots_[SlotOf(kuid, number)].number = with;
  }

  // Takes out the KUID that is there under `number`.
  void Erase(const KUID& kuid, uint32_t number);

  // Makes room for `count` entries in all.
  void Reserve(size_t count);

  // Asks the processor for the place of a KUID ahead of its use.
  void Prefetch(const KUID& kuid) const {
    if (!slots_.empty()) __builtin_prefetch(&slots_[Home(HashOf(kuid))], 1);
  }

  size_t Size() const { return size_; }
  void Clear() {
    slots_ = {};
    size_ = 0;
  }

 private:
  static constexpr size_t kSmallest = 16;

  struct Slot {
    uint32_t hash = 0;
    uint32_t number = kNone;
  };

  static uint32_t HashOf(const KUID& kuid) { return static_cast<uint32_t>(std::hash<KUID>()(kuid)); }
  size_t Home(uint32_t hash) const { return hash & (slots_.size() - 1); }
  size_t Next(size_t at) const { return (at + 1) & (slots_.size() - 1); }
  size_t Distance(size_t from, size_t to) const { return (to - from) & (slots_.size() - 1); }

  size_t SlotOf(const KUID& kuid, uint32_t number) const {
    size_t at = Home(HashOf(kuid));
    while (slots_[at].number != number)
      at = Next(at);
    return at;
  }

  void Place(Slot entry) {
    size_t at = Home(entry.hash);
    while (slots_[at].number != kNone)
      at = Next(at);
    slots_[at] = entry;
  }

  void Grow(size_t wanted);

  std::vector<Slot> slots_;  // a power of two of them
  size_t size_ = 0;
};

}  // namespace morvex
