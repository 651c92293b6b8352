#include "database/catalogue/asset_lock.h"
#include "database/operations/install.h"
#include "database/operations/install_asset.h"
#include "database/operations/operation_report.h"
#include "packages/package_archive.h"

namespace morvex {

size_t ZEBInstallPackageFile(std::string_view path, ResultsLog* log, uint32_t flags, uint8_t* outFlag) {
  const ZEBAssetLock lock(true);
  if (!lock) return 0;
  TagContainer archive;
  if (!OpenArchive(archive, {}, path).Empty()) {
    ReportPath(log, Severity::kError, "$zeb_unreadable_cdp", path);
    return 0;
  }
  size_t installed = 0;
  const ArchiveAssets assets(archive);
  for (uint32_t i = 0; i < assets.Count(); ++i) {
    KUID kuid;
    ZEBInstallAsset(kuid, assets.At(i), log, flags, outFlag);
    if (!kuid.IsNull()) ++installed;
  }
  return installed;
}

}  // namespace morvex
