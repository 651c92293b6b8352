#include "database/operations/clone.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/config_reader.h"
#include "database/catalogue/kuid_generator.h"
#include "database/operations/config_file.h"
#include "database/operations/copy_folder.h"
#include "database/operations/delete_asset.h"
#include "database/operations/open_asset.h"
#include "database/operations/operation_report.h"
#include "database/operations/revert.h"
#include "packages/package_tags.h"
#include "tagdata/kuid_list.h"
#include "tagdata/morvex_log.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

bool MayClone(const ZEBAssetInfo& source, bool newVersion, const OperationReport& report) {
  if (!source.Has(AssetFlag::kPermitEdit)) return report.Error("$zeb_clone_perm");
  if (!newVersion) return true;
  if (source.Kuid().userId != ZEBLocalUser()) return report.Error("$zeb_not_local_owner");
  return ZEBAssetCache::Instance().IsLatest(source) || report.Error("$zeb_asset_out_of_date");
}

KUID NextKuid(const KUID& old, bool newVersion) {
  const bool canCount = old.userId >= 0 && old.version < KUID::kMaxVersion;
  if (newVersion && canCount) return KUID(old.userId, old.contentId, old.version + 1);
  return ZEBGenerateKUID();
}

// Gives the copied configuration the new KUID. Another asset makes its original obsolete; a version does so by its
// number.
bool Rename(const Nox::Location& folder, const KUID& old, const KUID& renamed) {
  TagContainer config;
  config.CopyFrom(ReadConfig(folder));
  config.SetKUID(PackageTags::kKuid, renamed);
  if (renamed.userId != old.userId || renamed.contentId != old.contentId) {
    KUIDList obsolete;
    obsolete.FromContainer(config.GetContainer(PackageTags::kObsoleteTable));
    obsolete.AddUnique(old);
    config.SetContainer(PackageTags::kObsoleteTable, obsolete.ToContainer());
  }
  return WriteConfig(folder, config, ConfigForm::kText);
}

// The new asset, open for edit and without content. A KUID that is known already isn't touched.
ZEBAssetHandle CreateFor(const KUID& kuid, const OperationReport& report, ResultsLog* log) {
  if (kuid.IsNull() || ZEBAssetCache::Instance().Create(kuid) == nullptr) {
    report.Error("$zeb_asset_out_of_date");
    return {};
  }
  ZEBAssetHandle handle = ZEBOpenAsset(kuid, true, log);
  if (handle.IsEmpty()) ZEBDeleteAsset(kuid, true);
  return handle;
}

}  // namespace

ZEBAssetHandle ZEBCloneAsset(const KUID& kuid, bool newVersion, ResultsLog* log) {
  const ZEBAssetLock lock(true);
  const ZEBAssetHandle source = ZEBOpenAsset(kuid, false, log);
  if (source.IsEmpty()) return {};
  const ZEBAssetInfo& original = *source.Record();
  const KUID oldKuid = original.Kuid();
  const OperationReport report(log, oldKuid);
  if (!MayClone(original, newVersion, report)) return {};

  const KUID newKuid = NextKuid(oldKuid, newVersion);
  ZEBAssetHandle handle = CreateFor(newKuid, report, log);
  if (handle.IsEmpty()) return {};
  ZEBAssetInfo& clone = *handle.Record();
  if (!ZEBCopyAssetFolder(CommittedLocation(original), EditLocation(clone), 0) ||
      !Rename(EditLocation(clone), oldKuid, newKuid)) {
    ZEBRevertAssetEdits(handle);
    return {};
  }
  if (!newVersion) clone.Set(AssetState::kCloned, true);
  if (!ZEBAssetCache::Instance().Refresh(clone))
    MorvexLog::Message("ZEBCloneAsset> unable to update asset info");
  if (log != nullptr) {
    AddAssetMessage(*log, Severity::kNote, newKuid, "$zeb_cloned", oldKuid.TagText(), newKuid.TagText());
  }
  return handle;
}

}  // namespace morvex
