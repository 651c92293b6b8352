// Nox::File::Prune. The tree is walked with a list in place of recursion, and by handles relative to one
// another, so neither its depth nor the length of its paths matters, and a link put in the way while the walk
// runs can't lead it out of the tree.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "engine/directory_reader.h"
#include "engine/file.h"
#include "engine/mounts.h"
#include "engine/name_lookup.h"
#include "engine/open_host.h"
#include "engine/path.h"

namespace Nox {
namespace {

class TreeRemover {
 public:
  // Begins in `parent`, the folder that holds the tree.
  explicit TreeRemover(UniqueHandle parent) : here_(std::move(parent)) {}

  bool Remove(const std::string& name) {
    if (!here_ || !Push("")) return false;
    levels_.back().folders.push_back(name);
    while (!lost_ && (levels_.size() > 1 || !levels_.back().folders.empty())) {
      if (levels_.back().folders.empty()) {
        Leave();
      } else {
        const std::string next = std::move(levels_.back().folders.back());
        levels_.back().folders.pop_back();
        Enter(next);
      }
    }
    return complete_ && !lost_;
  }

 private:
  struct Level {
    dev_t device;
    ino_t number;
    std::string name;
    std::vector<std::string> folders;  // still to be removed
  };

  bool Push(const std::string& name) {
    struct stat info {};
    if (fstat(here_.Get(), &info) != 0) return false;
    levels_.push_back({info.st_dev, info.st_ino, name, {}});
    return true;
  }

  // Goes down into a folder and removes all in it that isn't a folder.
  void Enter(const std::string& name) {
    UniqueHandle folder(openat(here_.Get(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder) {
      // Not to be read, but perhaps empty.
      if (unlinkat(here_.Get(), name.c_str(), AT_REMOVEDIR) != 0) complete_ = false;
      return;
    }
    here_ = std::move(folder);
    if (!Push(name)) {
      lost_ = true;
      return;
    }
    // All names before the first is removed: not every disk keeps its place.
    std::vector<std::string> names;
    DirectoryReader reader(here_.Get());
    while (const dirent64* entry = reader.Next()) {
      (entry->d_type == DT_DIR ? levels_.back().folders : names).emplace_back(entry->d_name);
    }
    for (const std::string& file : names)
      RemoveFile(file);
  }

  void RemoveFile(const std::string& name) {
    if (unlinkat(here_.Get(), name.c_str(), 0) == 0) return;
    struct stat info {};
    const bool known = fstatat(here_.Get(), name.c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0;
    if (known && S_ISDIR(info.st_mode)) {
      levels_.back().folders.push_back(name);
    } else if (known) {
      complete_ = false;
    }
  }

  // Goes back up and removes the folder that was left. A folder that was moved meanwhile ends the walk.
  void Leave() {
    const std::string name = std::move(levels_.back().name);
    levels_.pop_back();
    UniqueHandle above(openat(here_.Get(), "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    struct stat info {};
    const Level& expected = levels_.back();
    lost_ = !above || fstat(above.Get(), &info) != 0 || info.st_dev != expected.device ||
            info.st_ino != expected.number;
    if (lost_) return;
    here_ = std::move(above);  // closes the folder left: one still open would be removed in two slow steps
    if (unlinkat(here_.Get(), name.c_str(), AT_REMOVEDIR) != 0) complete_ = false;
  }

  UniqueHandle here_;
  std::vector<Level> levels_;
  bool complete_ = true;
  bool lost_ = false;
};

}  // namespace

bool File::Prune(LocationView folder) {
  const std::optional<std::string> path = ResolveHostPath(folder);
  const std::optional<std::string> found = path ? FindExisting(*path) : std::nullopt;
  if (!found) return false;
  const std::string place = Path::DelSlash(*found);
  const std::string name(Path::GetFileName(place));
  if (name.empty() || name == "." || name == "..") return false;

  struct stat info {};
  if (lstat(place.c_str(), &info) != 0) return false;
  if (S_ISLNK(info.st_mode)) return unlink(place.c_str()) == 0;
  if (!S_ISDIR(info.st_mode)) return false;
  const std::string parent = Path::PrevDir(place);
  return TreeRemover(OpenFolder(parent.empty() ? "." : parent)).Remove(name);
}

}  // namespace Nox
