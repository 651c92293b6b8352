// The calls of Nox::File that work on names.

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "engine/file.h"
#include "engine/host_path.h"
#include "engine/mounts.h"
#include "engine/name_lookup.h"
#include "engine/open_host.h"
#include "engine/zip_archive.h"

namespace Nox {
namespace {

constexpr mode_t kNewFolderMode = 0777;  // less what the umask takes away

// What a location names on the disk; none if nothing exists there.
std::optional<std::string> FindOnHost(LocationView location) {
  const std::optional<std::string> path = ResolveHostPath(location);
  return path ? FindExisting(*path) : std::nullopt;
}

std::optional<struct stat> InfoOf(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return std::nullopt;
  return info;
}

bool IsFolderItself(const std::string& path) {
  struct stat info {};
  return lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

// The path under which Rename puts its result. The same file in other letters gets the letters asked for.
std::optional<std::string> RenameTarget(const std::string& source, const std::string& wanted) {
  std::optional<std::string> target = ResolveCase(wanted);
  if (!target || *target != source) return target;
  return Path::AddPath(Path::DelName(source, true), Path::GetFileName(Path::ReplaceForwardSlashes(wanted)));
}

bool MakeFolders(const std::string& path) {
  for (std::size_t slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1)) {
    if (mkdir(path.substr(0, slash).c_str(), kNewFolderMode) != 0 && errno != EEXIST) {
      if (!InfoOf(path.substr(0, slash))) return false;
    }
  }
  return mkdir(path.c_str(), kNewFolderMode) == 0 || errno == EEXIST;
}

}  // namespace

bool File::Exists(LocationView location) {
  const std::optional<ResolvedLocation> resolved = ResolveLocation(location);
  if (!resolved) return false;
  if (resolved->archive != nullptr) return resolved->archive->Find(resolved->path) != nullptr;
  return FindExisting(resolved->path).has_value();
}

bool File::IsFolder(LocationView location) {
  const std::optional<ResolvedLocation> resolved = ResolveLocation(location);
  if (!resolved) return false;
  if (resolved->archive != nullptr) {
    const ZipArchive::Node* node = resolved->archive->Find(resolved->path);
    return node != nullptr && node->isFolder;
  }
  const std::optional<std::string> found = FindExisting(resolved->path);
  const std::optional<struct stat> info = found ? InfoOf(*found) : std::nullopt;
  return info && S_ISDIR(info->st_mode);
}

std::optional<std::uint64_t> File::SizeOf(LocationView file) {
  const std::optional<ResolvedLocation> resolved = ResolveLocation(file);
  if (!resolved) return std::nullopt;
  if (resolved->archive != nullptr) {
    const ZipArchive::Node* node = resolved->archive->Find(resolved->path);
    return node != nullptr && !node->isFolder ? std::optional(node->size) : std::nullopt;
  }
  const std::optional<std::string> found = FindExisting(resolved->path);
  const std::optional<struct stat> info = found ? InfoOf(*found) : std::nullopt;
  if (!info || !S_ISREG(info->st_mode)) return std::nullopt;
  return static_cast<std::uint64_t>(info->st_size);
}

bool File::Unlink(LocationView file) {
  const std::optional<std::string> found = FindOnHost(file);
  return found && unlink(found->c_str()) == 0;
}

bool File::Rename(LocationView from, LocationView to) {
  const std::optional<std::string> source = FindOnHost(from);
  const std::optional<std::string> wanted = ResolveHostPath(to);
  if (!source || !wanted) return false;
  const std::string sourcePath = Path::DelSlash(*source);
  const std::optional<std::string> target = RenameTarget(sourcePath, Path::DelSlash(*wanted));
  if (!target) return false;
  if (sourcePath == *target) return true;
  // The system by itself would let a folder replace an empty one.
  if (IsFolderItself(*target)) return false;
  if (!IsFolderItself(sourcePath)) return rename(sourcePath.c_str(), target->c_str()) == 0;
  if (renameat2(AT_FDCWD, sourcePath.c_str(), AT_FDCWD, target->c_str(), RENAME_NOREPLACE) == 0) return true;
  return errno == EINVAL && rename(sourcePath.c_str(), target->c_str()) == 0;
}

bool File::Md(LocationView folder) {
  const std::optional<std::string> path = ResolveHostPath(folder);
  const std::optional<std::string> target = path ? ResolveCase(*path) : std::nullopt;
  if (!target) return false;
  std::optional<struct stat> info = InfoOf(*target);
  if (!info && MakeFolders(*target)) info = InfoOf(*target);
  return info && S_ISDIR(info->st_mode);
}

bool File::Rd(LocationView folder) {
  const std::optional<std::string> found = FindOnHost(folder);
  return found && rmdir(found->c_str()) == 0;
}

bool File::SyncFolder(LocationView folder) {
  const std::optional<std::string> path = ResolveHostPath(folder);
  if (!path) return false;
  const UniqueHandle handle = OpenFolder(*path);
  return handle && fsync(handle.Get()) == 0;
}

}  // namespace Nox
