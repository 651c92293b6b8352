#include "packages/folder_copy.h"

#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "engine/file.h"
#include "engine/text.h"
#include "packages/asset_walk.h"
#include "packages/file_report.h"
#include "packages/target_folder.h"

namespace morvex {
namespace {

bool IsConfiguration(std::string_view name) {
  return name == "config.txt" || name == "config.chump";
}

bool CanRead(Nox::LocationView path) {
  return Nox::File().Open(path, Nox::OpenMode::kRead);
}

class FolderCopy {
 public:
  FolderCopy(Nox::PString pack, std::string_view target, ResultsLog& log)
      : pack_(pack), target_(target), log_(log), open_{target_.Path()} {}

  // Takes the entries of a walk one by one.
  void Take(const WalkEntry& entry) {
    switch (entry.finding) {
      case WalkFinding::kFile:
        return TakeFile(entry);
      case WalkFinding::kFolder:
        return EnterFolder(entry);
      case WalkFinding::kFolderEnd:
        return open_.pop_back();
      default:
        succeeded_ = false;
        ReportEntry(log_, entry, FileReporter::kPacking);
    }
  }

  bool Succeeded() const { return succeeded_; }

 private:
  // The path of an entry in the target, if nothing went there yet.
  std::optional<std::string> Claim(const WalkEntry& entry) {
    if (!open_.back()) return std::nullopt;
    std::optional<std::string> path = TargetFolder::PathOf(*open_.back(), Nox::ToLower(entry.name));
    if (path && claimed_.insert(*path).second) return path;
    succeeded_ = false;
    ReportBadName(log_, entry.name);
    return std::nullopt;
  }

  void EnterFolder(const WalkEntry& entry) {
    const std::optional<std::string> path = Claim(entry);
    std::optional<std::string> made;
    if (path) made = target_.MakeFolder(*path);
    if (!made) succeeded_ = false;
    open_.push_back(std::move(made));
  }

  void TakeFile(const WalkEntry& entry) {
    const std::optional<std::string> path = Claim(entry);
    if (!path) return;
    if (!CanRead({pack_, entry.path})) {
      succeeded_ = false;
      return ReportUnreadableFile(log_, entry.path);
    }
    const bool isTop = open_.size() == 1;
    if (isTop && IsConfiguration(Nox::ToLower(entry.name))) return;
    if (!Copy(entry.path, *path)) succeeded_ = false;
  }

  // The target is made first, so that the copy finds its name without a search.
  bool Copy(const std::string& from, const std::string& to) {
    Nox::File made;
    return target_.CreateFile(made, to) && made.Close() && Nox::File::CopyFile({pack_, from}, to);
  }

  Nox::PString pack_;
  TargetFolder target_;
  ResultsLog& log_;
  // The target paths of the folders that the walk is in; none below a folder that couldn't be made.
  std::vector<std::optional<std::string>> open_;
  std::unordered_set<std::string> claimed_;
  bool succeeded_ = true;
};

}  // namespace

bool CopyAssetFiles(Nox::LocationView source, std::string_view target, ResultsLog& log) {
  FolderCopy copy(source.pack, target, log);
  for (const WalkEntry& entry : WalkAssetFolder(source))
    copy.Take(entry);
  return copy.Succeeded();
}

}  // namespace morvex
