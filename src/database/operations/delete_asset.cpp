#include "database/operations/delete_asset.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "tagdata/disk.h"
#include "tagdata/kuid.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

void RemoveCopy(ZEBAssetInfo& record, const Nox::Location& folder, AssetText which) {
  DiskDelete(folder.pack, folder.path);
  record.SetText(which, {});
  ZEBMarkChanged(kContentChanged);
}

void RemoveCopies(ZEBAssetInfo& record) {
  if (record.IsOpen()) RemoveCopy(record, EditLocation(record), AssetText::kEditPath);
  if (record.HasLocalCopy()) RemoveCopy(record, LocalLocation(record), AssetText::kLocalPath);
  if (record.IsInPack() && !record.Has(AssetFlag::kBuiltIn)) {
    RemoveCopy(record, PackLocation(record), AssetText::kPackPath);
    record.SetText(AssetText::kPackName, {});
  }
}

// Whether anything but this installation's own folders knows the asset.
bool IsKnownElsewhere(ZEBAssetInfo& record) {
  return record.Has(AssetState::kOnStation) || record.Has(AssetFlag::kBuiltIn) ||
         ZEBAssetCache::Instance().IsArchived(record);
}

}  // namespace

bool ZEBDeleteAsset(const KUID& kuid, bool removeEntry) {
  const ZEBAssetLock lock(true);
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  ZEBAssetInfo* record = lock ? cache.Find(kuid) : nullptr;
  if (record == nullptr) return false;

  RemoveCopies(*record);
  record->Set(AssetFlag::kHasErrors, false);
  cache.ForgetDependants(record->Kuid());
  if (!record->IsCommitted()) cache.RemoveObsoletes(*record);
  if (removeEntry && !IsKnownElsewhere(*record)) {
    cache.Remove(*record);
    ZEBMarkChanged(kContentChanged);
  } else if (!cache.Refresh(*record)) {
    MorvexLog::Message("ZEBDeleteAsset> warning: unable to update asset info");
  }
  ZEBForgetAssetNotes(record->Kuid());
  return true;
}

}  // namespace morvex
