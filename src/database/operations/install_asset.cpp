#include "database/operations/install_asset.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/asset_status.h"
#include "database/catalogue/database.h"
#include "database/operations/asset_handle.h"
#include "database/operations/commit.h"
#include "database/operations/config_file.h"
#include "database/operations/create_asset.h"
#include "database/operations/open_asset.h"
#include "database/operations/operation_report.h"
#include "database/operations/revert.h"
#include "packages/file_extraction.h"
#include "tagdata/disk.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

// One install, under the write lock.
class Install {
 public:
  Install(const InstallContent& content, ResultsLog* log, uint32_t flags)
      : content_(content), kuid_(content.config.GetKUID()), log_(log), flags_(flags), report_(log, kuid_) {}

  bool Run(uint8_t* outFlag) {
    ZEBAssetStatus status;
    const bool known = ZEBGetAssetStatus(kuid_, status);
    ZEBReportProgress();
    if (known && status.installed && !MayReplace(status)) return false;
    if (!Open(known) || !EmptyFolder() || !Fill() || !Finish(outFlag)) return false;
    report_.Success("$zeb_installed");
    return true;
  }

  const KUID& Kuid() const { return kuid_; }

 private:
  bool Has(uint32_t flag) const { return (flags_ & flag) != 0; }
  ConfigForm Form() const { return Has(kInstallCommit) ? ConfigForm::kChump : ConfigForm::kText; }

  bool MayReplace(const ZEBAssetStatus& status) {
    if (!Has(kInstallReplace)) return report_.Warning("$zeb_already_installed");
    if (status.open) return report_.Warning("$zeb_skipping_open_for_edit");
    if (status.builtIn) return report_.Warning("$zeb_skipping_built_in");
    if (status.dlsItem) return report_.Warning("$zeb_skipping_dls_item");
    flags_ &= ~kInstallCommit;
    return true;
  }

  // A new record for the null KUID would get a KUID that the content doesn't have.
  bool Open(bool known) {
    if (!kuid_.IsNull()) handle_ = known ? ZEBOpenAsset(kuid_, true, nullptr) : ZEBCreateAsset(kuid_, false);
    if (handle_.IsEmpty()) return report_.Error("$zeb_write_error");
    folder_ = EditLocation(*handle_.Record());
    return true;
  }

  bool EmptyFolder() const {
    if (!Has(kInstallReplace)) return true;
    if (!DiskDelete({}, folder_.path)) return report_.Error("$zeb_overwrite_error");
    DiskMakeDir({}, folder_.path);
    return true;
  }

  bool Fill() const {
    TagContainer config;
    if (content_.writeFiles(folder_.path)) {
      content_.config.ExtractConfig(config);
      if (WriteConfig(folder_, config, Form())) return true;
    }
    report_.Error("$zeb_failed_install");
    ZEBRevertAssetEdits(handle_);
    return false;
  }

  bool Finish(uint8_t* outFlag) {
    if (Has(kInstallCommit)) {
      const uint32_t commitFlags = Has(kInstallToPack) ? kCommitToPack | kCommitUnchecked : 0;
      return ZEBCommitAssetEdits(handle_, commitFlags, log_, outFlag);
    }
    if (!ZEBAssetCache::Instance().Refresh(*handle_.Record())) {
      MorvexLog::Message("ZEBInstallAsset> unable to update asset info");
    }
    return true;
  }

  const InstallContent& content_;
  const KUID kuid_;
  ResultsLog* const log_;
  uint32_t flags_;
  const OperationReport report_;
  ZEBAssetHandle handle_;
  Nox::Location folder_;
};

}  // namespace

void InstallAssetContent(KUID& resultKuid, const InstallContent& content, ResultsLog* log, uint32_t flags,
                         uint8_t* outFlag) {
  const ZEBAssetLock lock(true);
  Install install(content, log, flags);
  resultKuid = lock && install.Run(outFlag) ? install.Kuid() : KUID();
}

void ZEBInstallAsset(KUID& resultKuid, const PackageItem& item, ResultsLog* log, uint32_t flags,
                     uint8_t* outFlag) {
  const auto writeFiles = [&item](const std::string& folder) {
    return ExtractFiles(item.GetFiles(), item.GetCompression(), folder).Empty();
  };
  InstallAssetContent(resultKuid, {item, writeFiles}, log, flags, outFlag);
}

}  // namespace morvex
