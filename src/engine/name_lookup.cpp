#include "engine/name_lookup.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

#include "engine/directory_reader.h"
#include "engine/host_path.h"
#include "engine/text.h"
#include "engine/unique_handle.h"

namespace Nox {
namespace {

bool NameExists(const char* path) {
  struct stat info {};
  return lstat(path, &info) == 0;
}

// The entry of a folder that is equal but for case, the first in Find order; empty if there is none.
std::string MatchInFolder(const std::string& folder, std::string_view name) {
  std::string match;
  // A name without letters is written in one way only.
  if (std::none_of(name.begin(), name.end(), [](char c) { return ToLower(c) >= 'a' && ToLower(c) <= 'z'; })) {
    return match;
  }
  const UniqueHandle handle(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!handle) return match;
  DirectoryReader reader(handle.Get());
  while (const dirent64* entry = reader.Next()) {
    const std::string_view candidate = entry->d_name;
    if (!EqualsIgnoreCase(candidate, name)) continue;
    if (match.empty() || candidate < match) match = candidate;
  }
  return match;
}

// A path in two: what the disk has, in the disk's letters, and what it hasn't, as given.
struct Split {
  std::string found;
  std::string missing;
};

std::size_t StartOfLastComponent(std::string_view path) {
  while (!path.empty() && path.back() == Path::kSeparator)
    path.remove_suffix(1);
  return path.size() - Path::GetFileName(path).size();
}

std::optional<Split> LookUp(std::string_view path) {
  const HostPath host(path);
  if (!host.Valid()) return std::nullopt;
  if (NameExists(host.c_str())) return Split{std::string(host.View()), ""};

  // Upwards to the first folder that is there as written, then down again by the folders' own names.
  const std::string text(host.View());
  std::size_t end = StartOfLastComponent(text);
  while (end > 0 && !NameExists(text.substr(0, end).c_str())) {
    end = StartOfLastComponent(std::string_view(text).substr(0, end));
  }
  Split split{text.substr(0, end), ""};
  while (end < text.size()) {
    const std::size_t slash = std::min(text.find(Path::kSeparator, end), text.size());
    const std::string_view name = std::string_view(text).substr(end, slash - end);
    const std::string match = NameExists(Path::AddPath(split.found, name).c_str())
                                  ? std::string(name)
                                  : MatchInFolder(split.found, name);
    if (match.empty()) break;
    split.found = Path::AddPath(split.found, match);
    end = std::min(text.find_first_not_of(Path::kSeparator, slash), text.size());
  }
  split.missing = text.substr(end);
  return split;
}

}  // namespace

std::optional<std::string> FindExisting(std::string_view path) {
  std::optional<Split> split = LookUp(path);
  if (!split || !split->missing.empty()) return std::nullopt;
  return std::move(split->found);
}

std::optional<std::string> ResolveCase(std::string_view path) {
  const std::optional<Split> split = LookUp(path);
  if (!split) return std::nullopt;
  return Path::AddPath(split->found, split->missing);
}

}  // namespace Nox
