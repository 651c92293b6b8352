#include "database/operations/open_asset.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/operations/asset_folders.h"
#include "database/operations/copy_folder.h"
#include "database/operations/operation_report.h"

namespace morvex {
namespace {

bool OpenForEdit(ZEBAssetInfo& record, const OperationReport& report) {
  if (!record.Has(AssetFlag::kPermitEdit)) return report.Error("$zeb_edit_perm");
  if (record.IsOpen()) return true;

  const Nox::Location source = CommittedLocation(record);
  if (!MakeEditFolder(record)) return report.Error("$zeb_open_file_error");
  if (source.path.empty() || ZEBCopyAssetFolder(source, EditLocation(record), 0)) return true;

  record.SetText(AssetText::kEditPath, {});
  ZEBAssetCache::Instance().Refresh(record);
  return report.Error("$zeb_copy_file_error");
}

bool OpenForReading(const ZEBAssetInfo& record, const OperationReport& report) {
  return record.IsCommitted() || report.Error("$zeb_not_committed");
}

}  // namespace

ZEBAssetHandle ZEBOpenAsset(const KUID& kuid, bool forEdit, ResultsLog* log) {
  const ZEBAssetLock lock(forEdit);
  if (!lock) return {};
  ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(kuid);
  if (record == nullptr) return {};
  const OperationReport report(log, record->Kuid());
  const bool opened = forEdit ? OpenForEdit(*record, report) : OpenForReading(*record, report);
  return opened ? ZEBAssetHandle(*record, forEdit) : ZEBAssetHandle();
}

}  // namespace morvex
