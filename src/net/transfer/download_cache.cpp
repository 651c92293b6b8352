#include "net/transfer/download_cache.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "engine/file.h"
#include "engine/find.h"
#include "engine/path.h"
#include "engine/text.h"
#include "engine/time.h"
#include "tagdata/temporary_path.h"

namespace morvex {
namespace {

constexpr std::size_t kMaxFileName = 64;  // far above any that is given out
constexpr int kMaxPlaces = 100;

std::uint32_t Now() {
  return static_cast<std::uint32_t>(Nox::TimeStamp());
}

bool IsPage(std::string_view path) {
  return Nox::Path::IsExt(path, "htm") || Nox::Path::IsExt(path, "html") || Nox::Path::IsExt(path, "php");
}

// A name that a file of the folder may have. Names are found in any case, so the index's own may not come up in
// another one.
bool IsPlainName(std::string_view name) {
  constexpr std::string_view kOthers = "-_. ";
  const auto isPlain = [&](char c) {
    const char lower = Nox::ToLower(c);
    return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || kOthers.find(c) != kOthers.npos;
  };
  return !name.empty() && name.size() <= kMaxFileName && std::all_of(name.begin(), name.end(), isPlain) &&
         name != "." && name != ".." && !Nox::EqualsIgnoreCase(name, kCacheIndexName);
}

}  // namespace

DownloadCache::DownloadCache(std::string_view folder) : place_(TakePlace(folder)) {
  if (Folder().empty()) return;
  entries_ = ReadCacheIndex(Folder());
  Repair();
}

DownloadCache::Place DownloadCache::TakePlace(std::string_view wanted) {
  Place place;
  if (wanted.empty()) return place;
  for (int number = 1; number <= kMaxPlaces && !place.lock; ++number) {
    place.folder = number == 1 ? std::string(wanted) : std::string(wanted) + "-" + std::to_string(number);
    Nox::File::Md(place.folder);
    place.lock = Nox::FileLock::Take(place.folder + ".lock", Nox::FileLock::Kind::kExclusive, 0);
  }
  return place;
}

bool DownloadCache::CanKeep(const URL& url) {
  return url.query.Empty() && IsCacheKey(CacheKey(url));
}

void DownloadCache::Repair() {
  const auto files = Nox::ListFolder(Folder());
  if (!files) return;
  std::set<std::string_view> present;
  for (const Nox::DirEntry& file : *files) {
    if (file.isRegular && !file.isLink) present.insert(file.name);
  }
  const std::uint32_t now = Now();
  std::set<std::string_view> named = {kCacheIndexName};
  for (auto entry = entries_.begin(); entry != entries_.end();) {
    const bool sound = !entry->second.IsOver(entry->first, now) && present.contains(entry->second.fileName) &&
                       IsAsEntered(entry->second);
    if (sound) named.insert(entry->second.fileName);
    entry = sound ? std::next(entry) : entries_.erase(entry);
  }
  for (const Nox::DirEntry& file : *files) {
    if ((!file.isDir || file.isLink) && !named.contains(file.name))
      Nox::File::Unlink(Nox::Path::AddPath(Folder(), file.name));
  }
  Save();
}

// An index that can't be written now is put right at the next start.
void DownloadCache::Save() const {
  WriteCacheIndex(Folder(), entries_);
}

bool DownloadCache::IsAsEntered(const CacheEntry& entry) const {
  const std::optional<std::string> path = PathOf(entry.fileName);
  const auto size = path ? Nox::File::SizeOf(*path) : std::nullopt;
  return size && static_cast<std::uint32_t>(*size) == entry.size;
}

CacheEntry DownloadCache::NewEntry(const URL& url, const std::string& path) const {
  CacheEntry entry;
  entry.fileName = Nox::Path::GetFileName(path);
  const std::string text = url.ToString();
  if (text != CacheKey(url)) entry.url = text;
  entry.downloaded = entry.lastReferenced = Now();
  return entry;
}

std::optional<DownloadCache::Found> DownloadCache::Find(const URL& url) {
  const std::lock_guard guard(lock_);
  const auto found = entries_.find(CacheKey(url));
  if (found == entries_.end()) return std::nullopt;
  CacheEntry& entry = found->second;
  if (!entry.IsOf(url) || (entry.state > kCacheIncomplete && !IsAsEntered(entry)) ||
      !PathOf(entry.fileName)) {
    DropEntry(found);
    return std::nullopt;
  }
  entry.lastReferenced = Now();
  return Found{*PathOf(entry.fileName), entry.state > kCacheIncomplete};
}

void DownloadCache::Begin(const URL& url, const std::string& path) {
  const std::lock_guard guard(lock_);
  entries_[CacheKey(url)] = NewEntry(url, path);
}

void DownloadCache::AddToCache(const URL& url, const std::string& path, bool succeeded) {
  const std::lock_guard guard(lock_);
  const std::string key = CacheKey(url);
  CacheEntry entry = NewEntry(url, path);
  if (succeeded) entry.state = IsPage(path) && !IsFtpKey(key) ? kCachePage : kCacheFile;
  entry.size = static_cast<std::uint32_t>(Nox::File::SizeOf(path).value_or(0));
  const auto old = entries_.find(key);
  if (old != entries_.end() && old->second.fileName != entry.fileName) DropEntry(old);
  entries_[key] = std::move(entry);
  Save();
}

void DownloadCache::Remove(const URL& url, const std::string& path) {
  const std::lock_guard guard(lock_);
  const auto found = entries_.find(CacheKey(url));
  if (found == entries_.end()) return;
  if (!path.empty() && found->second.fileName != Nox::Path::GetFileName(path)) return;
  DropEntry(found);
  Save();
}

void DownloadCache::DropEntry(CacheEntries::iterator entry) {
  if (const auto path = PathOf(entry->second.fileName)) dropped_.push_back(*path);
  entries_.erase(entry);
}

void DownloadCache::DropFile(const std::string& path) {
  const std::lock_guard guard(lock_);
  dropped_.push_back(path);
}

void DownloadCache::DeleteDropped(const std::function<bool(const std::string& path)>& isInUse) {
  const std::lock_guard guard(lock_);
  const auto isEntered = [&](const std::string& path) {
    return std::any_of(entries_.begin(), entries_.end(), [&](const auto& entry) {
      return entry.second.fileName == Nox::Path::GetFileName(path);
    });
  };
  std::erase_if(dropped_, [&](const std::string& path) {
    if (isInUse(path)) return false;
    if (!isEntered(path)) Nox::File::Unlink(path);
    return true;
  });
}

std::optional<std::string> DownloadCache::MakeFile(std::string_view extension) const {
  std::string path;
  Nox::File file;
  if (Folder().empty() || !CreateTemporaryFilePath(Nox::PString(), Folder(), "file", extension, path) ||
      !file.CreateNew(path))
    return std::nullopt;
  return path;
}

std::optional<std::string> DownloadCache::PathOf(std::string_view name) const {
  if (Folder().empty() || !IsPlainName(name)) return std::nullopt;
  return Nox::Path::AddPath(Folder(), name);
}

}  // namespace morvex
