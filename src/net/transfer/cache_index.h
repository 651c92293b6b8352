#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "net/transfer/url.h"

namespace morvex {

// cachefile.txt, the index of the download cache, lies in its folder. It is a configuration text, in which the whole
// URL in lower case is the name of a container:
//
//   cachefilename       string   the name of the file in the folder
//   datedownloaded      integer  seconds since 1970
//   datelastreferenced  integer  the same
//   cachestate          integer  a CacheState
//   cachefilesize       integer  bytes, the low 32 bits of the number
//   cacheurl            string   the URL as it was asked for, only if it has capitals
//
// A server may tell capitals from small letters, so an entry whose URL differs in them isn't the one asked for.
inline constexpr const char* kCacheIndexName = "cachefile.txt";

enum CacheState : std::int32_t {
  kCacheIncomplete = 0,
  kCacheInvalid = 1,
  kCachePage = 2,  // lives for a day
  kCacheFile = 3,  // any other whole file, and all of FTP; lives for 30 days
};

struct CacheEntry {
  std::string fileName;
  std::string url;  // empty if it is the key
  std::uint32_t downloaded = 0;
  std::uint32_t lastReferenced = 0;
  std::int32_t state = kCacheIncomplete;
  std::uint32_t size = 0;

  // Whether it is of this URL, whose key is its own.
  [[nodiscard]] bool IsOf(const URL& asked) const;
  // Whether its time is over; `now` in seconds since 1970.
  [[nodiscard]] bool IsOver(std::string_view key, std::uint32_t now) const;
};

using CacheEntries = std::map<std::string, CacheEntry, std::less<>>;  // by their keys

// The key of a URL, and whether it can be one: it must come back as it was when it is written as a tag's name.
[[nodiscard]] std::string CacheKey(const URL& url);
[[nodiscard]] bool IsCacheKey(std::string_view key);
[[nodiscard]] bool IsFtpKey(std::string_view key);

// Nothing for an index that can't be read.
[[nodiscard]] CacheEntries ReadCacheIndex(std::string_view folder);
// False, with the old one as it was, if it can't be written.
bool WriteCacheIndex(std::string_view folder, const CacheEntries& entries);

}  // namespace morvex
