#include "database/operations/make_package.h"

#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/asset_status.h"
#include "database/catalogue/config_reader.h"
#include "database/catalogue/pack_table.h"
#include "database/operations/asset_handle.h"
#include "database/operations/file_name_rule.h"
#include "database/operations/open_asset.h"
#include "database/operations/operation_report.h"
#include "packages/folder_packing.h"

namespace morvex {
namespace {

// The asset's files, coded. Its configuration isn't one of them.
bool PackFiles(const Nox::Location& folder, Nox::PString compression, TagContainer& files, ResultsLog* log) {
  const PackMount mount(folder.pack);
  ResultsLog unread;
  if (!AddFolder(files, folder.pack, folder.path, compression, log != nullptr ? *log : unread)) return false;
  files.Remove(Nox::PString(kConfigText));
  files.Remove(Nox::PString(kConfigChump));
  return true;
}

bool MakePackage(const KUID& kuid, PackageItem& item, ResultsLog* log) {
  const OperationReport report(log, kuid);
  const ZEBAssetHandle handle = ZEBOpenAsset(kuid, false, nullptr);
  if (handle.IsEmpty()) return report.Error("$zeb_unable_to_open");
  if (handle.Record()->IsOpen()) return report.Error("$zeb_already_open_for_edit");

  TagContainer config;
  config.CopyFrom(ZEBGetAssetConfig(kuid));
  if (config.GetCount() == 0) return report.Error("$zeb_unable_read_config");
  const Nox::Location folder = CommittedLocation(*handle.Record());
  TagContainer files;
  if (!PackFiles(folder, item.GetCompression(), files, log)) return report.Error("$zeb_unable_read_files");

  ApplyFileNameRule(config, folder.path);
  item.SetConfig(config);
  item.SetFiles(files);
  return true;
}

}  // namespace

PackageItem ZEBMakeAssetPackage(const KUID& kuid, ResultsLog* log) {
  const ZEBAssetLock lock(false);
  PackageItem item;
  return lock && MakePackage(kuid, item, log) ? item : PackageItem(TagContainer());
}

}  // namespace morvex
