#include "net/transfer/cache_index.h"

#include <algorithm>

#include "engine/path.h"
#include "engine/text.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

namespace tag {
const Nox::PString kFileName("cachefilename");
const Nox::PString kDownloaded("datedownloaded");
const Nox::PString kLastReferenced("datelastreferenced");
const Nox::PString kState("cachestate");
const Nox::PString kSize("cachefilesize");
const Nox::PString kUrl("cacheurl");
}  // namespace tag

constexpr std::size_t kMaxKey = 511;          // of a tag, in the text form
constexpr std::uint32_t kPageLife = 86400;    // seconds
constexpr std::uint32_t kFileLife = 2592000;  // the same

CacheEntry ReadEntry(const TagContainer& soup) {
  CacheEntry entry;
  entry.fileName = soup.GetText(tag::kFileName);
  entry.url = soup.GetText(tag::kUrl);
  entry.downloaded = static_cast<std::uint32_t>(soup.GetInt(tag::kDownloaded));
  entry.lastReferenced = static_cast<std::uint32_t>(soup.GetInt(tag::kLastReferenced));
  entry.state = soup.GetInt(tag::kState);
  entry.size = static_cast<std::uint32_t>(soup.GetInt(tag::kSize));
  return entry;
}

TagContainer EntrySoup(const CacheEntry& entry) {
  TagContainer soup;
  soup.SetString(tag::kFileName, entry.fileName);
  soup.SetInt(tag::kDownloaded, static_cast<std::int32_t>(entry.downloaded));
  soup.SetInt(tag::kLastReferenced, static_cast<std::int32_t>(entry.lastReferenced));
  soup.SetInt(tag::kState, entry.state);
  soup.SetInt(tag::kSize, static_cast<std::int32_t>(entry.size));
  if (!entry.url.empty()) soup.SetString(tag::kUrl, entry.url);
  return soup;
}

std::string IndexPath(std::string_view folder) {
  return Nox::Path::AddPath(folder, kCacheIndexName);
}

}  // namespace

bool CacheEntry::IsOf(const URL& asked) const {
  return asked.ToString() == (url.empty() ? CacheKey(asked) : url);
}

bool CacheEntry::IsOver(std::string_view key, std::uint32_t now) const {
  const std::uint32_t age = now > downloaded ? now - downloaded : 0;
  if (IsFtpKey(key)) return age > kFileLife;
  if (state == kCachePage) return age > kPageLife;
  return state != kCacheFile || age > kFileLife;
}

std::string CacheKey(const URL& url) {
  return Nox::ToLower(url.ToString());
}

bool IsCacheKey(std::string_view key) {
  const auto isPlain = [](char c) { return c > ' ' && c <= '~' && c != '}'; };
  return key.size() <= kMaxKey && std::all_of(key.begin(), key.end(), isPlain);
}

bool IsFtpKey(std::string_view key) {
  return key.starts_with("ftp:");
}

CacheEntries ReadCacheIndex(std::string_view folder) {
  CacheEntries entries;
  TagContainer index;
  if (!index.Load(Nox::PString(), IndexPath(folder))) return entries;
  for (std::uint32_t i = 0; i < index.GetCount(); ++i) {
    const Nox::PString key = index.GetName(i);
    if (IsCacheKey(key.View())) entries[std::string(key.View())] = ReadEntry(index.GetContainer(key));
  }
  return entries;
}

bool WriteCacheIndex(std::string_view folder, const CacheEntries& entries) {
  TagContainer index;
  for (const auto& [key, entry] : entries)
    index.SetContainer(Nox::PString(key), EntrySoup(entry));
  return index.Save(Nox::PString(), IndexPath(folder));
}

}  // namespace morvex
