#pragma once

#include <filesystem>
#include <numeric>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/asset_query.h"
#include "database/catalogue/database.h"
#include "database/catalogue/folder_setup.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace morvex::test {

// An installation in a folder of its own. The database is started by Start and stopped at the end of life.
class Installation {
 public:
  ~Installation() { Stop(); }

  // Starts and waits for the load.
  void Start() {
    ZEBPrepareFolders(scratch_.path());
    ZEBInit({.root = scratch_.path()});
    const ZEBAssetLock lock(true);
  }
  bool Stop() {
    if (!ZEBIsStarted()) return true;
    const bool written = ZEBShutdown();
    ZEBReleaseFolders();
    return written;
  }
  void Restart() {
    Stop();
    Start();
  }

  std::string Path(std::string_view name) const { return scratch_ / std::string(name); }
  bool Exists(std::string_view name) const { return std::filesystem::exists(Path(name)); }
  void Write(std::string_view name, std::string_view content) const { PutFile(Path(name), content); }
  std::string Read(std::string_view name) const { return GetFile(Path(name)); }
  void Remove(std::string_view name) const { std::filesystem::remove_all(Path(name)); }
  void Rename(std::string_view from, std::string_view to) const {
    std::filesystem::rename(Path(from), Path(to));
  }
  // The names right below a folder, sorted, each followed by a blank.
  std::string Names(std::string_view folder) const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Path(folder)))
      names.insert(entry.path().filename().string() + " ");
    return std::accumulate(names.begin(), names.end(), std::string());
  }

  // Writes `<folder>/config.txt` with a KUID, a name and further lines.
  void AddAsset(std::string_view folder, std::string_view kuid, std::string_view name,
                std::string_view more = {}) const {
    const auto text = [](std::string_view view) { return std::string(view); };
    Write(text(folder) + "/config.txt", "kuid " + text(kuid) + "\r\nusername \"" + text(name) +
                                            "\"\r\nkind \"scenery\"\r\n" + text(more) + "\r\n");
  }

 private:
  ScratchFolder scratch_;
};

inline KUID Parse(std::string_view kuid) {
  return KUID(kuid, false);
}

// The record, which must exist, of a started database.
inline ZEBAssetInfo& Record(std::string_view kuid) {
  ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(Parse(kuid));
  if (record == nullptr) throw std::runtime_error("no record of " + std::string(kuid));
  return *record;
}

// "open local pack" as "eLp": capitals for the copies that the record has; "-" without a record.
inline std::string Copies(std::string_view kuid) {
  const ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(Parse(kuid));
  if (record == nullptr) return "-";
  return std::string(record->IsOpen() ? "E" : "e") + (record->HasLocalCopy() ? "L" : "l") +
         (record->IsInPack() ? "P" : "p");
}

// Texts of all KUIDs that a search with a new query finds, with blanks between them.
inline std::string ViewText() {
  KUIDList list;
  ZEBSearchAssets(ZEBAssetQuery(), list);
  std::string text;
  for (const KUID& kuid : list)
    text += (text.empty() ? "" : " ") + kuid.ToDelimited(':');
  return text;
}

}  // namespace morvex::test
