#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "database/catalogue/kuid_index.h"
#include "tagdata/kuid.h"

namespace morvex {

// Which asset depends on which, asked in both directions. What the index file holds stays as it lies there for
// as long as few questions come, each answered by a walk over it; then it is indexed. Not locked itself.
class DependencyTable {
 public:
  static constexpr size_t kPairSize = 2 * KUID::kBinarySize;

  // The pairs of an index file, validated, which must stay where they are until Clear.
  void Adopt(std::span<const uint8_t> pairs);
  void Clear();

  // Replaces the list of an asset. Null KUIDs and the asset itself are left out.
  void Set(const KUID& asset, const std::vector<KUID>& dependencies);
  // In the order they were given.
  std::vector<KUID> DependenciesOf(const KUID& asset);
  std::vector<KUID> DependantsOf(const KUID& dependency);

  size_t Count() const;
  // The pairs in the form of the index file, if nothing was changed since Adopt; else none, and ForEach tells.
  bool IsUnchanged() const { return !decoded_; }
  std::span<const uint8_t> Adopted() const { return adopted_; }
  // Calls visit(asset, dependency).
  template <typename Visit>
  void ForEach(Visit visit) const {
    for (const Pair& pair : pairs_) {
      if (!pair.asset.IsNull()) visit(pair.asset, pair.dependency);
    }
  }

 private:
  static constexpr uint32_t kNone = 0xFFFFFFFF;
  static constexpr int kWalksBeforeIndex = 16;

  // Chains of the pairs that share an asset, and of those that share a dependency.
  struct Pair {
    KUID asset;  // null: taken out
    KUID dependency;
    uint32_t nextOfAsset = kNone;
    uint32_t nextOfDependency = kNone;
  };

  bool WalkInstead();
  std::vector<KUID> Walk(const KUID& wanted, bool wantedIsAsset) const;
  void Decode();
  void Chain(uint32_t pair);

  std::span<const uint8_t> adopted_;
  int walks_ = 0;
  bool decoded_ = false;  // pairs_ speaks, not adopted_
  std::vector<Pair> pairs_;
  size_t removed_ = 0;
  KuidIndex byAsset_;       // first pair of an asset's chain
  KuidIndex byDependency_;  // first pair of a dependency's chain
};

}  // namespace morvex
