#include "database/operations/commit.h"

#include <string>
#include <string_view>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/config_reader.h"
#include "database/catalogue/database.h"
#include "database/operations/asset_folders.h"
#include "database/operations/asset_handle.h"
#include "database/operations/asset_validator.h"
#include "database/operations/copy_folder.h"
#include "database/operations/operation_report.h"
#include "engine/file.h"
#include "engine/path.h"
#include "frontend/messages/results_log.h"
#include "packages/folder_packing.h"
#include "tagdata/disk.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

constexpr std::string_view kLocalPack = "local";

// One commit, under the write lock. Check and Move may fail and leave the asset open; Finish can't.
class Commit {
 public:
  Commit(ZEBAssetInfo& record, uint32_t flags, ResultsLog* log)
      : record_(record),
        flags_(record.IsInPack() ? flags & ~kCommitToPack : flags),
        log_(log),
        report_(log, record.Kuid()) {}

  bool Check() {
    if (!record_.Has(AssetFlag::kPermitCommit)) return report_.Error("$zeb_commit_perm");
    if (!record_.IsOpen()) return report_.Error("$zeb_commit_open_for_edit");
    if (!EnsureLocalFolder()) return report_.Error("$zeb_commit_database_error");
    const bool hasText = HasFile(kConfigText);
    const bool hasChump = HasFile(kConfigChump);
    if (!hasText && !hasChump) return report_.Error("$zeb_commit_missing_config");
    if (hasText && hasChump) return report_.Error("$zeb_commit_duplicate_config");
    return FilesAreValid() || report_.Error("$zeb_commit_invalid_files");
  }

  bool Move() {
    const uint32_t mode = KeepsOpen() ? kCopyChump : kCopyMove | kCopyChump;
    return ZEBCopyAssetFolder(EditLocation(record_), LocalLocation(record_), mode) ||
           report_.Error("$zeb_commit_file_error");
  }

  void Finish(uint8_t* outFlag) {
    if (!KeepsOpen() && !Close() && outFlag != nullptr) *outFlag = 1;
    if ((flags_ & kCommitToPack) != 0) TurnIntoPackAsset();
    ZEBMarkChanged(kContentChanged);

    ZEBAssetCache& cache = ZEBAssetCache::Instance();
    record_.SetFolderSize(ZEBAssetInfo::kSizeUnknown);  // measured again by the refresh
    if (!cache.Refresh(record_)) MorvexLog::Message("ZEBCommitAssetEdits> unable to update asset info");
    Validate();
    cache.UpdateDerived(record_, true);
    cache.ForgetDependants(record_.Kuid());
    ZEBForgetAssetNotes(record_.Kuid());
    cache.SortView();
  }

 private:
  bool KeepsOpen() const { return (flags_ & kCommitKeepOpen) != 0; }

  bool HasFile(std::string_view name) const {
    return Nox::File::Exists(Nox::Path::AddPath(EditLocation(record_).path, name));
  }

  // A folder that was removed by hand is made again, or the asset could never be committed.
  bool EnsureLocalFolder() {
    return record_.HasLocalCopy() ? DiskMakeDir({}, LocalLocation(record_).path) : MakeLocalFolder(record_);
  }

  bool FilesAreValid() const {
    if ((flags_ & kCommitUnchecked) != 0) return true;
    ResultsLog unread;
    return CheckFolder({}, EditLocation(record_).path, log_ != nullptr ? *log_ : unread);
  }

  // True if nothing of the edit folder is left; a move has taken it away already.
  bool Close() {
    const std::string folder = EditLocation(record_).path;
    record_.SetText(AssetText::kEditPath, {});
    return !Nox::File::Exists(folder) || DiskDelete({}, folder);
  }

  void TurnIntoPackAsset() {
    const std::string path(record_.LocalPath());
    const std::string prefix = std::string(kLocalPack) + Nox::Path::kSeparator;
    if (path.size() <= prefix.size()) return;
    record_.SetText(AssetText::kPackPath, path.substr(prefix.size()));
    record_.SetText(AssetText::kPackName, kLocalPack);
    record_.SetText(AssetText::kLocalPath, {});
  }

  void Validate() {
    AssetValidator* const validator = CurrentAssetValidator();
    if (validator == nullptr) return;
    ResultsLog unread;
    record_.Set(AssetFlag::kHasErrors, !validator->Validate(record_.Kuid(), unread));
  }

  ZEBAssetInfo& record_;
  const uint32_t flags_;
  ResultsLog* const log_;
  const OperationReport report_;
};

}  // namespace

bool ZEBCommitAssetEdits(ZEBAssetHandle& handle, uint32_t flags, ResultsLog* log, uint8_t* outFlag) {
  if (handle.IsEmpty() || !handle.forEdit) return false;
  const ZEBAssetLock lock(true);
  if (!lock) return false;
  Commit commit(*handle.Record(), flags, log);
  if (!commit.Check() || !commit.Move()) return false;
  commit.Finish(outFlag);
  handle.forEdit = false;
  return true;
}

}  // namespace morvex
