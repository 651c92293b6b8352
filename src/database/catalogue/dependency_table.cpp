#include "database/catalogue/dependency_table.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "database/catalogue/record_codec.h"

namespace morvex {

void DependencyTable::Adopt(std::span<const uint8_t> pairs) {
  Clear();
  adopted_ = pairs;
}

void DependencyTable::Clear() {
  adopted_ = {};
  walks_ = 0;
  decoded_ = false;
  pairs_ = {};
  removed_ = 0;
  byAsset_.Clear();
  byDependency_.Clear();
}

size_t DependencyTable::Count() const {
  return decoded_ ? pairs_.size() - removed_ : adopted_.size() / kPairSize;
}

void DependencyTable::Set(const KUID& asset, const std::vector<KUID>& dependencies) {
  if (dependencies.empty() && Count() == 0) return;
  Decode();
  const auto assetOf = [this](uint32_t pair) { return pairs_[pair].asset; };
  const uint32_t first = byAsset_.Find(asset, assetOf);
  if (first != kNone) {
    byAsset_.Erase(asset, first);
    for (uint32_t pair = first; pair != kNone; pair = pairs_[pair].nextOfAsset) {
      pairs_[pair].asset = KUID();
      ++removed_;
    }
  }
  // Chains grow in front, so the last one goes in first.
  for (auto at = dependencies.rbegin(); at != dependencies.rend(); ++at) {
    if (at->IsNull() || *at == asset || asset.IsNull()) continue;
    pairs_.push_back({asset, *at});
    Chain(static_cast<uint32_t>(pairs_.size() - 1));
  }
}

std::vector<KUID> DependencyTable::DependenciesOf(const KUID& asset) {
  if (WalkInstead()) return Walk(asset, true);
  std::vector<KUID> found;
  uint32_t pair = byAsset_.Find(asset, [this](uint32_t at) { return pairs_[at].asset; });
  for (; pair != kNone; pair = pairs_[pair].nextOfAsset)
    found.push_back(pairs_[pair].dependency);
  return found;
}

std::vector<KUID> DependencyTable::DependantsOf(const KUID& dependency) {
  if (WalkInstead()) return Walk(dependency, false);
  std::vector<KUID> found;
  uint32_t* link = nullptr;
  uint32_t pair = byDependency_.Find(dependency, [this](uint32_t at) { return pairs_[at].dependency; });
  while (pair != kNone) {
    const uint32_t next = pairs_[pair].nextOfDependency;
    if (!pairs_[pair].asset.IsNull()) {
      found.push_back(pairs_[pair].asset);
      link = &pairs_[pair].nextOfDependency;
    } else if (link != nullptr) {
      *link = next;  // taken out; the next question needn't pass it again
    }
    pair = next;
  }
  return found;
}

bool DependencyTable::WalkInstead() {
  if (decoded_) return false;
  if (++walks_ <= kWalksBeforeIndex) return true;
  Decode();
  return false;
}

std::vector<KUID> DependencyTable::Walk(const KUID& wanted, bool wantedIsAsset) const {
  std::vector<KUID> found;
  const size_t wantedAt = wantedIsAsset ? 0 : KUID::kBinarySize;
  const size_t otherAt = KUID::kBinarySize - wantedAt;
  KUID::Bytes chunk = wanted.ToChunkData();
  std::rotate(chunk.begin(), chunk.begin() + 4, chunk.end());  // the stream form has the words exchanged
  uint64_t key = 0;
  std::memcpy(&key, chunk.data(), sizeof key);
  for (size_t at = 0; at + kPairSize <= adopted_.size(); at += kPairSize) {
    uint64_t here = 0;
    std::memcpy(&here, adopted_.data() + at + wantedAt, sizeof here);
    if (here == key) found.push_back(KuidAt(adopted_.data() + at + otherAt));
  }
  return found;
}

void DependencyTable::Decode() {
  if (decoded_) return;
  decoded_ = true;
  const size_t count = adopted_.size() / kPairSize;
  pairs_.reserve(count);
  for (size_t i = 0; i < count; ++i) {
    const uint8_t* at = adopted_.data() + i * kPairSize;
    pairs_.push_back({KuidAt(at), KuidAt(at + KUID::kBinarySize)});
  }
  for (size_t i = count; i > 0; --i)
    Chain(static_cast<uint32_t>(i - 1));
}

void DependencyTable::Chain(uint32_t pair) {
  const auto inFront = [&](KuidIndex& index, const KUID& kuid, auto kuidOf, uint32_t& next) {
    next = index.Find(kuid, kuidOf);
    if (next == kNone) {
      index.Insert(kuid, pair);
    } else {
      index.Replace(kuid, next, pair);
    }
  };
  Pair& added = pairs_[pair];
  inFront(
      byAsset_, added.asset, [this](uint32_t at) { return pairs_[at].asset; }, added.nextOfAsset);
  inFront(
      byDependency_, added.dependency, [this](uint32_t at) { return pairs_[at].dependency; },
      added.nextOfDependency);
}

}  // namespace morvex
