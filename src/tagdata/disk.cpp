#include "tagdata/disk.h"

#include <optional>

#include "engine/file.h"
#include "engine/name_lookup.h"
#include "engine/path.h"
#include "engine/real_path.h"

namespace morvex {
namespace {

std::string& Root() {
  static std::string root;
  return root;
}

std::string InBase(Nox::PString base, std::string_view path) {
  return Nox::Path::ReplaceForwardSlashes(Nox::Path::AddPath(Nox::Path::AddPath(Root(), base.View()), path));
}

// The path to work on; none for a relative one without a base.
std::optional<std::string> FullPath(Nox::PString base, std::string_view path) {
  if (!base.Empty()) return InBase(base, path);
  if (!Nox::Path::IsAbsolute(path)) return std::nullopt;
  return std::string(path);
}

// Where a folder truly lies, names found on the disk and links followed. Empty if it doesn't exist.
std::string TruePath(const std::string& folder) {
  const std::optional<std::string> found = Nox::FindExisting(folder);
  return found ? Nox::RealPath(*found) : std::string();
}

// `path` is normalised. Its own last component may be a link; those in front of it may not lead out.
bool LiesBelowRoot(const std::string& path) {
  if (!Nox::Path::IsBelow(Root(), path)) return false;
  return Nox::IsWithin(TruePath(Root()), TruePath(Nox::Path::PrevDir(path)));
}

}  // namespace

void SetRootPath(std::string_view root) {
  Root() = root;
}
const std::string& GetRootPath() {
  return Root();
}

bool DiskExists(Nox::PString base, std::string_view path) {
  if (!base.Empty()) return Nox::File::Exists({base, path});
  return !Nox::Path::IsAbsolute(path) || Nox::File::Exists(path);
}

bool DiskDelete(Nox::PString base, std::string_view path) {
  const std::optional<std::string> full = FullPath(base, path);
  if (!full) return false;
  // Worked out before it is used: behind a link, the system's ".." isn't the one that was compared.
  const std::string target = Nox::Path::Normalize(*full);
  if (!LiesBelowRoot(target)) return false;
  return Nox::File::Prune(target) || Nox::File::Unlink(target);
}

bool DiskRename(Nox::PString base, std::string_view fromPath, std::string_view toPath) {
  const std::optional<std::string> from = FullPath(base, fromPath);
  const std::optional<std::string> to = FullPath(base, toPath);
  return from && to && Nox::File::Rename(*from, *to);
}

bool DiskMakeDir(Nox::PString base, std::string_view path) {
  const std::optional<std::string> folder = FullPath(base, path);
  return folder && Nox::File::Md(*folder);
}

bool DiskCopy(Nox::PString fromBase, std::string_view fromPath, Nox::PString toBase,
              std::string_view toPath) {
  const std::string from = fromBase.Empty() ? std::string(fromPath) : InBase(fromBase, fromPath);
  const std::string to = toBase.Empty() ? std::string(toPath) : InBase(toBase, toPath);
  return Nox::File::CopyFile(from, to);
}

}  // namespace morvex
