#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/file_lock.h"
#include "net/transfer/cache_index.h"
#include "net/transfer/url.h"

namespace morvex {

// The folder that downloads go into, and the index of what is in it. Names in the index are names in the folder:
// none leads out of it. What the folder holds besides is removed at the next start. A folder serves one cache at a
// time; whoever finds it taken, by another process too, gets one beside it with a number behind its name.
//
// Any thread; the lock is innermost.
class DownloadCache {
 public:
  // `folder` is an absolute path; an empty one makes a cache that has nothing and makes no file. Reads the index and
  // puts right what a run that was killed, or somebody else, left behind: entries whose time is over or whose file
  // isn't as they say go, and so does every file without one.
  explicit DownloadCache(std::string_view folder);

  // Whether the result of a URL can be kept: it has no query, and its text can stand in the index.
  [[nodiscard]] static bool CanKeep(const URL& url);

  struct Found {
    std::string path;
    bool complete = false;  // else the beginning of the file may be there
  };
  // The file that the index has for a URL; noted as used now. Nothing if there is none, or if the file isn't the
  // one that was entered; such an entry is dropped.
  [[nodiscard]] std::optional<Found> Find(const URL& url);
  // Enters a file that is about to be fetched.
  void Begin(const URL& url, const std::string& path);
  // Enters a file as it is now, in place of what the URL had, and writes the index.
  void AddToCache(const URL& url, const std::string& path, bool succeeded);
  // Drops the entry. With a path, only if it is of that file.
  void Remove(const URL& url, const std::string& path = {});

  // Files whose entry was dropped, and those given here, which have none, are deleted by the next DeleteDropped for
  // which they aren't in use any more.
  void DropFile(const std::string& path);
  void DeleteDropped(const std::function<bool(const std::string& path)>& isInUse);

  // The path of a new, empty file; nothing if it can't be made.
  [[nodiscard]] std::optional<std::string> MakeFile(std::string_view extension) const;
  // The path of a file of the folder; nothing for what isn't a plain name.
  [[nodiscard]] std::optional<std::string> PathOf(std::string_view name) const;
  [[nodiscard]] const std::string& Folder() const { return place_.folder; }

 private:
  struct Place {
    std::string folder;
    std::optional<Nox::FileLock> lock;
  };

  static Place TakePlace(std::string_view wanted);
  void Repair();
  void Save() const;
  CacheEntry NewEntry(const URL& url, const std::string& path) const;
  bool IsAsEntered(const CacheEntry& entry) const;
  void DropEntry(CacheEntries::iterator entry);

  const Place place_;
  mutable std::mutex lock_;
  CacheEntries entries_;
  std::vector<std::string> dropped_;  // paths
};

}  // namespace morvex
