#include "database/operations/create_asset.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/operations/config_file.h"
#include "database/operations/open_asset.h"
#include "packages/package_tags.h"
#include "tagdata/morvex_log.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

void WriteStub(const ZEBAssetInfo& record) {
  TagContainer config;
  config.SetKUID(PackageTags::kKuid, record.Kuid());
  config.SetString(PackageTags::kKind, "unknown");
  if (!WriteConfig(EditLocation(record), config, ConfigForm::kText)) {
    MorvexLog::Message("ZEBCreateAsset> unable to write config.txt of %s", record.Kuid().TagText());
  }
}

}  // namespace

ZEBAssetHandle ZEBCreateAsset(const KUID& kuid, bool writeStub) {
  const ZEBAssetLock lock(true);
  if (!lock) return {};
  const ZEBAssetInfo* record = ZEBAssetCache::Instance().Create(kuid);
  if (record == nullptr) return {};
  ZEBAssetHandle handle = ZEBOpenAsset(record->Kuid(), true, nullptr);
  if (writeStub && !handle.IsEmpty()) WriteStub(*record);
  return handle;
}

}  // namespace morvex
