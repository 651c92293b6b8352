#include "engine/find.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

#include "engine/directory_reader.h"
#include "engine/mounts.h"
#include "engine/open_host.h"
#include "engine/path.h"
#include "engine/text.h"
#include "engine/zip_archive.h"

namespace Nox {
namespace {

DirEntry Describe(int folder, const dirent64& raw) {
  DirEntry entry{raw.d_name};
  entry.isDir = raw.d_type == DT_DIR;
  entry.isLink = raw.d_type == DT_LNK;
  entry.isRegular = raw.d_type == DT_REG;
  if (raw.d_type != DT_LNK && raw.d_type != DT_UNKNOWN) return entry;

  struct stat info {};
  if (raw.d_type == DT_UNKNOWN && fstatat(folder, raw.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0) {
    entry.isLink = S_ISLNK(info.st_mode);
  }
  if (fstatat(folder, raw.d_name, &info, 0) == 0) {
    entry.isDir = S_ISDIR(info.st_mode);
    entry.isRegular = S_ISREG(info.st_mode);
  }
  return entry;
}

std::optional<std::vector<DirEntry>> ListHostFolder(const std::string& path) {
  const UniqueHandle handle = OpenFolder(path.empty() ? "." : path);
  if (!handle) return std::nullopt;
  std::vector<DirEntry> entries;
  DirectoryReader reader(handle.Get());
  while (const dirent64* raw = reader.Next())
    entries.push_back(Describe(handle.Get(), *raw));
  if (reader.Failed()) return std::nullopt;
  std::sort(entries.begin(), entries.end(),
            [](const DirEntry& a, const DirEntry& b) { return FindOrderLess(a.name, b.name); });
  return entries;
}

std::optional<std::vector<DirEntry>> ListArchiveFolder(const ZipArchive& archive, std::string_view path) {
  const ZipArchive::Node* folder = archive.Find(path);
  if (folder == nullptr || !folder->isFolder) return std::nullopt;
  std::vector<DirEntry> entries;
  entries.reserve(folder->children.size());
  for (std::uint32_t child : folder->children) {
    const ZipArchive::Node& node = archive.NodeAt(child);
    entries.push_back({node.name, node.isFolder, false, !node.isFolder});
  }
  return entries;
}

}  // namespace

bool FindOrderLess(std::string_view a, std::string_view b) {
  const int order = CompareIgnoreCase(a, b);
  return order != 0 ? order < 0 : a < b;
}

std::optional<std::vector<DirEntry>> ListFolder(LocationView folder) {
  const std::optional<ResolvedLocation> resolved = ResolveLocation(folder);
  if (!resolved) return std::nullopt;
  if (resolved->archive != nullptr) return ListArchiveFolder(*resolved->archive, resolved->path);
  return ListHostFolder(resolved->path);
}

bool IsEmptyFolder(LocationView folder) {
  const std::optional<std::string> path = ResolveHostPath(folder);
  if (!path) {
    const auto entries = ListFolder(folder);
    return entries && entries->empty();
  }
  const UniqueHandle handle = OpenFolder(*path);
  if (!handle) return false;
  DirectoryReader reader(handle.Get());
  return reader.Next() == nullptr && !reader.Failed();
}

bool MatchWildcards(std::string_view name, std::string_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = std::string_view::npos;  // the last '*' met, and how far its text reaches
  std::size_t reach = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      reach = n;
    } else if (p < pattern.size() && (pattern[p] == '?' || ToLower(pattern[p]) == ToLower(name[n]))) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++reach;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*')
    ++p;
  return p == pattern.size();
}

bool File::Find::Open(LocationView pattern) {
  Close();
  folder_ = Path::DelName(pattern.path, false);
  std::string_view wanted = Path::GetFileName(pattern.path);
  if (wanted == "*.*") wanted = "*";  // names without a point are meant as well
  std::optional<std::vector<DirEntry>> listed = ListFolder({pattern.pack, folder_});
  if (!listed) return false;

  listed->insert(listed->begin(), {DirEntry{".", true}, DirEntry{"..", true}});
  std::erase_if(*listed, [&](const DirEntry& entry) { return !MatchWildcards(entry.name, wanted); });
  entries_ = *std::move(listed);
  return true;
}

const DirEntry* File::Find::Next() {
  return next_ < entries_.size() ? &entries_[next_++] : nullptr;
}

std::string File::Find::GetNameAndPath() const {
  return next_ == 0 ? folder_ : Path::AddPath(folder_, entries_[next_ - 1].name);
}

void File::Find::Close() {
  folder_.clear();
  entries_.clear();
  next_ = 0;
}

}  // namespace Nox
