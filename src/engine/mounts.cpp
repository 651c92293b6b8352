#include "engine/mounts.h"

#include <algorithm>
#include <mutex>
#include <shared_mutex>
#include <unordered_map>
#include <utility>

#include "engine/name_lookup.h"
#include "engine/path.h"
#include "engine/zip_archive.h"

namespace Nox {
namespace {

struct Mount {
  std::string folder;
  std::shared_ptr<const ZipArchive> archive;
};

struct MountTable {
  std::shared_mutex mutex;
  std::unordered_map<PString, Mount> byName;  // by the lowered name
};

MountTable& Table() {
  // Never destroyed, since an archive can't be closed any more once the ZIP library is gone at the process's end.
  static MountTable& table = *new MountTable;
  return table;
}

// True if a path of a pack comes out above the pack's own folder at any step.
bool ClimbsOut(std::string_view path) {
  int depth = 0;
  while (!path.empty()) {
    const std::string_view part = path.substr(0, path.find_first_of("/\\"));
    path.remove_prefix(std::min(part.size() + 1, path.size()));
    if (part == "..")
      --depth;
    else if (!part.empty() && part != ".")
      ++depth;
    if (depth < 0) return true;
  }
  return false;
}

}  // namespace

bool MountPack(PString name, std::string_view path, bool isFolder) {
  Mount mount;
  bool bound = !path.empty() && isFolder;
  if (bound) {
    mount.folder = path;
  } else if (!path.empty()) {
    const std::optional<std::string> found = FindExisting(path);
    if (found) mount.archive = ZipArchive::Open(*found);
    bound = mount.archive != nullptr;
  }
  MountTable& table = Table();
  const std::unique_lock lock(table.mutex);
  if (bound) {
    table.byName.insert_or_assign(name.ToLower(), std::move(mount));
  } else {
    table.byName.erase(name.ToLower());
  }
  return bound || path.empty();
}

std::optional<ResolvedLocation> ResolveLocation(LocationView location) {
  if (location.pack.Empty()) return ResolvedLocation{std::string(location.path), nullptr};
  if (ClimbsOut(location.path)) return std::nullopt;
  MountTable& table = Table();
  const std::shared_lock lock(table.mutex);
  const auto place = table.byName.find(location.pack.ToLower());
  if (place == table.byName.end()) return std::nullopt;
  const Mount& mount = place->second;
  if (mount.archive != nullptr) return ResolvedLocation{std::string(location.path), mount.archive};
  return ResolvedLocation{Path::AddPath(mount.folder, location.path), nullptr};
}

std::optional<std::string> ResolveHostPath(LocationView location) {
  std::optional<ResolvedLocation> resolved = ResolveLocation(location);
  if (!resolved || resolved->archive != nullptr) return std::nullopt;
  return std::move(resolved->path);
}

}  // namespace Nox
