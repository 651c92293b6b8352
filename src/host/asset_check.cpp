#include "host/asset_check.h"

#include <algorithm>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/config_reader.h"
#include "database/catalogue/kuid_generator.h"
#include "database/catalogue/pack_table.h"
#include "engine/file.h"
#include "engine/find.h"
#include "engine/path.h"
#include "packages/package_tags.h"
#include "validation/categories/asset_name.h"

namespace morvex::host {

namespace Path = Nox::Path;

namespace {

AssetCheck Check(const Nox::Location& folder) {
  const PackMount mount(folder.pack);
  AssetCheck check;
  check.path =
      folder.pack.Empty() ? folder.path : Path::AddPath(Path::AddPath(ZEBRoot(), folder.pack), folder.path);
  const TagContainer config = ReadConfig(folder);
  check.kuid = config.GetKUID(PackageTags::kKuid);
  if (config.IsValid()) check.name = GetAssetName(config, folder.path);
  check.isClean = QELLib::InspectAsset(folder.path, folder.pack, check.findings);
  return check;
}

bool HoldsConfig(const std::string& folder) {
  return Nox::File::Exists(Path::AddPath(folder, kConfigText)) ||
         Nox::File::Exists(Path::AddPath(folder, kConfigChump));
}

}  // namespace

std::optional<AssetCheck> CheckInstalled(const KUID& kuid) {
  const ZEBAssetLock lock(false);
  const ZEBAssetInfo* const record = lock ? ZEBAssetCache::Instance().Find(kuid) : nullptr;
  if (record == nullptr || !record->IsInstalled()) return std::nullopt;
  AssetCheck check = Check(record->IsOpen() ? EditLocation(*record) : CommittedLocation(*record));
  check.kuid = kuid;
  check.name = record->DisplayName();
  return check;
}

AssetCheck CheckFolder(const std::string& path) {
  return Check({Nox::PString(), path});
}

std::vector<std::string> FindAssetFolders(const std::string& path) {
  std::vector<std::string> found;
  std::vector<std::string> waiting = {path};
  while (!waiting.empty()) {
    const std::string folder = std::move(waiting.back());
    waiting.pop_back();
    if (HoldsConfig(folder)) {
      found.push_back(folder);
      continue;
    }
    const auto entries = Nox::ListFolder(folder);
    if (!entries) continue;
    for (auto entry = entries->rbegin(); entry != entries->rend(); ++entry) {
      if (entry->isDir && !entry->isLink) waiting.push_back(Path::AddPath(folder, entry->name));
    }
  }
  return found;
}

std::string_view SeverityName(QELLib::RecordSeverity severity) {
  switch (severity) {
    case QELLib::RecordSeverity::kError:
      return "error";
    case QELLib::RecordSeverity::kWarning:
      return "warning";
    case QELLib::RecordSeverity::kInformation:
      return "information";
  }
  return "";
}

}  // namespace morvex::host
