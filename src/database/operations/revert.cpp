#include "database/operations/revert.h"

#include <string>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "database/operations/asset_handle.h"
#include "database/operations/delete_asset.h"
#include "tagdata/disk.h"

namespace morvex {

bool ZEBRevertAssetEdits(const ZEBAssetHandle& handle) {
  const ZEBAssetLock lock(true);
  if (!lock || handle.IsEmpty()) return false;
  ZEBAssetInfo& record = *handle.Record();
  if (!record.IsOpen()) return false;

  DiskDelete({}, EditLocation(record).path);
  record.SetText(AssetText::kEditPath, {});
  ZEBMarkChanged(kContentChanged);
  if (record.IsCommitted()) return true;

  const KUID kuid = record.Kuid();
  ZEBDeleteAsset(kuid, true);
  if (ZEBAssetCache::Instance().Find(kuid) == nullptr) handle.Forget();
  return true;
}

}  // namespace morvex
