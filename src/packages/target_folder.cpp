#include "packages/target_folder.h"

#include "engine/file.h"
#include "engine/find.h"
#include "engine/name_lookup.h"
#include "engine/path.h"
#include "engine/real_path.h"
#include "packages/file_rules.h"

namespace morvex {
namespace {

std::string MakeRoot(std::string_view path) {
  Nox::File::Md(path);
  return Nox::FindExisting(path).value_or(std::string(path));
}

}  // namespace

TargetFolder::TargetFolder(std::string_view path)
    : path_(MakeRoot(path)), fresh_(Nox::IsEmptyFolder(path_)), real_(Nox::RealPath(path_)) {}

std::optional<std::string> TargetFolder::PathOf(std::string_view folder, std::string_view name) {
  if (folder.empty() || !IsValidName(name)) return std::nullopt;
  return Nox::Path::AddPath(folder, name);
}

std::optional<std::string> TargetFolder::MakeFolder(const std::string& path) {
  if (!Nox::File::Md(path)) return std::nullopt;
  const std::optional<std::string> onDisk = Nox::FindExisting(path);
  return onDisk && (fresh_ || Nox::IsWithin(real_, Nox::RealPath(*onDisk))) ? onDisk : std::nullopt;
}

bool TargetFolder::CreateFile(Nox::File& file, const std::string& path, bool replace) const {
  if (!fresh_ || replace) Nox::File::Unlink(path);
  return file.CreateNew(path);
}

}  // namespace morvex
