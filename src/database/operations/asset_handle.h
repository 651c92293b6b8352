#pragma once

#include <memory>

namespace morvex {

class ZEBAssetInfo;

// An asset that ZEBOpenAsset opened. A value: its copies share one holder of the record, which stays the property
// of the ZEBAssetCache. Holds no lock, so the record may have changed between two operations. Valid until the
// tables of the database are cleared.
class ZEBAssetHandle {
 public:
  ZEBAssetHandle() = default;  // empty: the open failed
  ZEBAssetHandle(ZEBAssetInfo& record, bool edit)
      : forEdit(edit), holder_(std::make_shared<ZEBAssetInfo*>(&record)) {}

  bool IsEmpty() const { return Record() == nullptr; }
  ZEBAssetInfo* Record() const { return holder_ == nullptr ? nullptr : *holder_; }
  // The record has left the database: this handle and all its copies become empty.
  void Forget() const {
    if (holder_ != nullptr) *holder_ = nullptr;
  }

  // True while the handle may be used to commit or revert.
  bool forEdit = false;

 private:
  std::shared_ptr<ZEBAssetInfo*> holder_;
};

}  // namespace morvex
