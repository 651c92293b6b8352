#include "database/catalogue/obsolete_map.h"

namespace morvex {

bool ZEBObsoleteMap::Set(const KUID& oldKuid, const KUID& newKuid) {
  if (oldKuid.IsNull() || newKuid.IsNull()) return false;
  const uint32_t further = FindOld(newKuid);
  const KUID target = further == kNone ? newKuid : entries_[further].pair.newKuid;
  if (target == oldKuid) return false;

  Retarget(oldKuid, target);
  const uint32_t former = FindOld(oldKuid);
  if (former != kNone) Erase(former);

  uint32_t place = static_cast<uint32_t>(entries_.size());
  if (free_.empty()) {
    entries_.emplace_back();
  } else {
    place = free_.back();
    free_.pop_back();
  }
  entries_[place] = Entry{{oldKuid, target}, kNone, kNone};
  byOld_.Insert(oldKuid, place);
  Link(place);
  return true;
}

KUID ZEBObsoleteMap::Find(const KUID& oldKuid) const {
  const uint32_t entry = FindOld(oldKuid);
  return entry == kNone ? KUID() : entries_[entry].pair.newKuid;
}

void ZEBObsoleteMap::Replacements(const KUID& newKuid, KUIDList& list) const {
  for (uint32_t entry = FirstOf(newKuid); entry != kNone; entry = entries_[entry].next)
    list.Add(entries_[entry].pair.oldKuid);
}

void ZEBObsoleteMap::Remove(const KUID& newKuid) {
  for (uint32_t entry = FirstOf(newKuid); entry != kNone; entry = FirstOf(newKuid))
    Erase(entry);
}

void ZEBObsoleteMap::Clear() {
  entries_.clear();
  free_.clear();
  byOld_.Clear();
  byNew_.Clear();
}

uint32_t ZEBObsoleteMap::FindOld(const KUID& kuid) const {
  return byOld_.Find(kuid, [this](uint32_t entry) { return OldOf(entry); });
}

uint32_t ZEBObsoleteMap::FirstOf(const KUID& newKuid) const {
  return byNew_.Find(newKuid, [this](uint32_t entry) { return NewOf(entry); });
}

// In front of the chain of its new KUID.
void ZEBObsoleteMap::Link(uint32_t entry) {
  const KUID& target = entries_[entry].pair.newKuid;
  const uint32_t first = FirstOf(target);
  entries_[entry].previous = kNone;
  entries_[entry].next = first;
  if (first == kNone) {
    byNew_.Insert(target, entry);
  } else {
    entries_[first].previous = entry;
    byNew_.Replace(target, first, entry);
  }
}

void ZEBObsoleteMap::Unlink(uint32_t entry) {
  const Entry& leaving = entries_[entry];
  if (leaving.next != kNone) entries_[leaving.next].previous = leaving.previous;
  if (leaving.previous != kNone) {
    entries_[leaving.previous].next = leaving.next;
  } else if (leaving.next != kNone) {
    byNew_.Replace(leaving.pair.newKuid, entry, leaving.next);
  } else {
    byNew_.Erase(leaving.pair.newKuid, entry);
  }
}

// Whatever points to `from` points to `to` from now on.
void ZEBObsoleteMap::Retarget(const KUID& from, const KUID& to) {
  for (uint32_t entry = FirstOf(from); entry != kNone; entry = FirstOf(from)) {
    Unlink(entry);
    entries_[entry].pair.newKuid = to;
    Link(entry);
  }
}

void ZEBObsoleteMap::Erase(uint32_t entry) {
  Unlink(entry);
  byOld_.Erase(entries_[entry].pair.oldKuid, entry);
  entries_[entry] = Entry();
  free_.push_back(entry);
}

}  // namespace morvex
