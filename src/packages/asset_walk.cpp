#include "packages/asset_walk.h"

#include <optional>
#include <utility>

#include "engine/find.h"
#include "engine/path.h"
#include "packages/file_rules.h"
#include "packages/link_guard.h"

namespace morvex {
namespace {

class AssetWalk {
 public:
  explicit AssetWalk(Nox::LocationView root) : pack_(root.pack), guard_(root) {
    List(std::string(root.path));
  }

  std::vector<WalkEntry> Run() {
    while (!open_.empty()) {
      OpenFolder& folder = open_.back();
      if (folder.next == folder.entries.size()) {
        Close();
        continue;
      }
      const Nox::DirEntry entry = std::move(folder.entries[folder.next++]);
      Judge(entry, Nox::Path::AddPath(folder.path, entry.name));
    }
    return std::move(found_);
  }

 private:
  // A folder on the way down to where the walk stands.
  struct OpenFolder {
    std::string path;
    std::vector<Nox::DirEntry> entries;
    size_t next = 0;
  };

  void Add(WalkFinding finding, std::string path, std::string name = {}) {
    found_.push_back({finding, std::move(path), std::move(name)});
  }

  void List(std::string path) {
    std::optional<std::vector<Nox::DirEntry>> entries = Nox::ListFolder({pack_, path});
    if (!entries) {
      Add(WalkFinding::kUnlistedFolder, path);
      entries.emplace();
    }
    guard_.CountEntries(entries->size());
    open_.push_back({std::move(path), std::move(*entries)});
  }

  void Close() {
    std::string path = std::move(open_.back().path);
    open_.pop_back();
    if (open_.empty()) return;
    guard_.Leave();
    Add(WalkFinding::kFolderEnd, std::move(path));
  }

  void Judge(const Nox::DirEntry& entry, std::string path) {
    if (!IsValidName(entry.name)) return Add(WalkFinding::kBadName, std::move(path), entry.name);
    if (entry.IsDir()) return JudgeFolder(entry, std::move(path));
    if (IsIgnoredFile(entry.name)) return;
    Add(JudgeFile(entry), std::move(path), entry.name);
  }

  WalkFinding JudgeFile(const Nox::DirEntry& entry) {
    if (!HasAllowedExtension(entry.name)) return WalkFinding::kBadExtension;
    if (entry.isLink && !guard_.LeadsInside(entry.name)) return WalkFinding::kUnreadableFile;
    return WalkFinding::kFile;
  }

  void JudgeFolder(const Nox::DirEntry& entry, std::string path) {
    switch (guard_.Enter(entry)) {
      case LinkGuard::Verdict::kOutside:
        return Add(WalkFinding::kUnreadableFile, std::move(path), entry.name);
      case LinkGuard::Verdict::kEndless:
        return Add(WalkFinding::kUnlistedFolder, std::move(path));
      case LinkGuard::Verdict::kEntered:
        Add(WalkFinding::kFolder, path, entry.name);
        List(std::move(path));
    }
  }

  Nox::PString pack_;
  LinkGuard guard_;
  std::vector<OpenFolder> open_;
  std::vector<WalkEntry> found_;
};

}  // namespace

std::vector<WalkEntry> WalkAssetFolder(Nox::LocationView folder) {
  return AssetWalk(folder).Run();
}

}  // namespace morvex
