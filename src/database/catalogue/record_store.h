#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "database/catalogue/asset_info.h"

namespace morvex {

// All records in load order, in blocks of 512, so that no record ever moves.
class RecordStore {
 public:
  static constexpr size_t kBlockSize = 512;

  // The new record, at the end.
  ZEBAssetInfo& Append() {
    if (count_ == blocks_.size() * kBlockSize)
      blocks_.push_back(std::make_unique<ZEBAssetInfo[]>(kBlockSize));
    return (*this)[count_++];
  }
  // Removed records keep their places.
  ZEBAssetInfo& operator[](size_t ordinal) { return blocks_[ordinal / kBlockSize][ordinal % kBlockSize]; }
  const ZEBAssetInfo& operator[](size_t ordinal) const {
    return blocks_[ordinal / kBlockSize][ordinal % kBlockSize];
  }
  // Places taken, those of removed records included.
  size_t Places() const { return count_; }

  void Clear() {
    blocks_.clear();
    count_ = 0;
  }

 private:
  std::vector<std::unique_ptr<ZEBAssetInfo[]>> blocks_;
  size_t count_ = 0;
};

}  // namespace morvex
