#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "database/catalogue/asset_lock.h"
#include "database/catalogue/config_reader.h"
#include "database/catalogue/database.h"
#include "database/operations/config_file.h"
#include "database/operations/file_name_rule.h"
#include "database/operations/install.h"
#include "database/operations/install_asset.h"
#include "database/operations/operation_report.h"
#include "engine/file.h"
#include "engine/find.h"
#include "engine/path.h"
#include "engine/real_path.h"
#include "packages/folder_copy.h"
#include "tagdata/disk.h"
#include "tagdata/temporary_path.h"

namespace morvex {
namespace {

// A copy of an asset's files on their way into the installation, without the configuration. It lies beside the
// folders that are open for edit, so that it becomes one of them by a rename; unless it does, it goes.
class StagedFiles {
 public:
  StagedFiles() = default;
  ~StagedFiles() {
    if (!path_.empty()) DiskDelete({}, path_);
  }
  StagedFiles(const StagedFiles&) = delete;
  StagedFiles& operator=(const StagedFiles&) = delete;

  bool Take(const std::string& source, ResultsLog& log) {
    std::string path;
    if (!CreateTemporaryFilePath({}, Nox::Path::AddPath(GetRootPath(), "editing"), "temp", {}, path))
      return false;
    path_ = path;
    return CopyAssetFiles(source, path_, log);
  }

  // `folder` is empty.
  bool MoveTo(const std::string& folder) {
    if (!Nox::File::Rd(folder) || !DiskRename({}, path_, folder)) return false;
    path_.clear();
    return true;
  }

 private:
  std::string path_;
};

void InstallAssetFolder(const std::string& path, ResultsLog* log, uint8_t* outFlag) {
  // Held from the first file on: who takes the installation over clears empty folders out of editing/.
  const ZEBAssetLock lock(true);
  if (!lock) return;
  TagContainer config;
  config.CopyFrom(ReadConfig(Nox::Location{{}, path}));
  InstallContent content;
  ApplyFileNameRule(config, path);
  content.config.SetConfig(config);
  if (content.config.GetKUID().IsNull()) {
    return ReportPath(log, Severity::kWarning, "$zeb_unable_read_config_at", path);
  }
  ResultsLog unread;
  StagedFiles files;
  if (!files.Take(path, log != nullptr ? *log : unread)) {
    return ReportPath(log, Severity::kWarning, "$zeb_skipping_asset_at", path);
  }
  content.writeFiles = [&files](const std::string& folder) { return files.MoveTo(folder); };
  KUID installed;
  InstallAssetContent(installed, content, log, kInstallReplace, outFlag);
}

// The walk down to the first folders that hold a configuration.
class AssetSearch {
 public:
  AssetSearch(ResultsLog* log, uint8_t* outFlag, const std::atomic<uint8_t>* cancelFlag)
      : log_(log), outFlag_(outFlag), cancelFlag_(cancelFlag) {}

  size_t Run(std::string_view path) {
    Visit(std::string(path));
    while (!open_.empty() && !IsCancelled()) {
      OpenFolder& folder = open_.back();
      if (folder.next == folder.entries.size()) {
        open_.pop_back();
        if (!open_.empty()) ZEBReportProgress();
        continue;
      }
      const Nox::DirEntry& entry = folder.entries[folder.next++];
      if (!entry.IsDir() || !Visit(Nox::Path::AddPath(folder.path, entry.name))) ZEBReportProgress();
    }
    return found_;
  }

 private:
  struct OpenFolder {
    std::string path;
    std::vector<Nox::DirEntry> entries;
    size_t next = 0;
  };

  bool IsCancelled() const { return cancelFlag_ != nullptr && *cancelFlag_ != 0; }

  // Installs the folder, or opens it to be walked; true for the latter.
  bool Visit(std::string path) {
    if (Nox::File::Exists(Nox::Path::AddPath(path, kConfigText)) ||
        Nox::File::Exists(Nox::Path::AddPath(path, kConfigChump))) {
      InstallAssetFolder(path, log_, outFlag_);
      ++found_;
      return false;
    }
    std::optional<std::vector<Nox::DirEntry>> entries;
    if (IsNew(path)) entries = Nox::ListFolder(path);
    if (entries) open_.push_back({std::move(path), *std::move(entries)});
    return entries.has_value();
  }

  // Links can lead to a folder again and again, and for ever; it is walked once.
  bool IsNew(const std::string& path) {
    std::string real = Nox::RealPath(path);
    return real.empty() || walked_.insert(std::move(real)).second;
  }

  ResultsLog* const log_;
  uint8_t* const outFlag_;
  const std::atomic<uint8_t>* const cancelFlag_;
  std::vector<OpenFolder> open_;
  std::unordered_set<std::string> walked_;
  size_t found_ = 0;
};

}  // namespace

size_t ZEBInstallFromPath(std::string_view path, ResultsLog* log, uint8_t* outFlag,
                          const std::atomic<uint8_t>* cancelFlag) {
  return path.empty() ? 0 : AssetSearch(log, outFlag, cancelFlag).Run(path);
}

}  // namespace morvex
