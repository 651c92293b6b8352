#include "tagdata/kuid_list.h"

#include <algorithm>

namespace morvex {

void KUIDList::Clear() {
  blocks_.clear();
  index_.clear();
  count_ = 0;
}

void KUIDList::Add(KUID kuid) {
  if (blocks_.empty() || blocks_.back().size() == kBlockSize) {
    if (!blocks_.empty() && index_.empty()) StartIndex();
    blocks_.emplace_back();
  }
  blocks_.back().push_back(kuid);
  ++count_;
  if (!index_.empty()) ++index_[kuid];
}

bool KUIDList::AddUnique(const KUID& kuid) {
  if (Contains(kuid)) return false;
  Add(kuid);
  return true;
}

bool KUIDList::AddIfValid(const KUID& kuid) {
  return !kuid.IsNull() && AddUnique(kuid);
}

bool KUIDList::Contains(const KUID& kuid) const {
  if (!index_.empty()) return index_.count(kuid) != 0;
  return Locate(kuid).has_value();
}

const KUID* KUIDList::Find(const KUID& kuid) const {
  const std::optional<Place> place = Locate(kuid);
  return place ? &blocks_[place->block][place->slot] : nullptr;
}

bool KUIDList::Remove(KUID kuid) {
  const std::optional<Place> place = Locate(kuid);
  if (!place) return false;
  Block& block = blocks_[place->block];
  block.erase(block.begin() + static_cast<std::ptrdiff_t>(place->slot));
  Removed(kuid, place->block);
  return true;
}

bool KUIDList::RemoveSwap(KUID kuid) {
  const std::optional<Place> place = Locate(kuid);
  if (!place) return false;
  Block& block = blocks_[place->block];
  block[place->slot] = block.back();
  block.pop_back();
  Removed(kuid, place->block);
  return true;
}

// A KUID that the index doesn't know isn't searched for.
std::optional<KUIDList::Place> KUIDList::Locate(const KUID& kuid) const {
  if (!index_.empty() && index_.count(kuid) == 0) return std::nullopt;
  for (size_t i = 0; i < blocks_.size(); ++i) {
    const auto found = std::find(blocks_[i].begin(), blocks_[i].end(), kuid);
    if (found != blocks_[i].end()) return Place{i, static_cast<size_t>(found - blocks_[i].begin())};
  }
  return std::nullopt;
}

void KUIDList::StartIndex() {
  for (const KUID& kuid : *this)
    ++index_[kuid];
}

void KUIDList::Removed(const KUID& kuid, size_t block) {
  --count_;
  if (blocks_[block].empty()) blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(block));
  const auto entry = index_.find(kuid);
  if (entry != index_.end() && --entry->second == 0) index_.erase(entry);
}

}  // namespace morvex
