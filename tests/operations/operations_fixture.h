#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_location.h"
#include "database/operations/commit.h"
#include "database/operations/install.h"
#include "database/operations/open_asset.h"
#include "frontend/messages/results_log.h"
#include "tests/catalogue/installation.h"

namespace morvex {

inline const KUID kAsset(100, 200, 0);
inline const KUID kOther(100, 201, 0);
inline const std::string kArt(300, 'b');  // long enough to be coded

// A fresh installation with a running database, and short ways to make assets and to see what became of them.
// A message is its key without "$zeb_" and its arguments.
class OperationsTest : public testing::Test, protected test::Installation {
 protected:
  using Files = std::map<std::string, std::string>;  // relative path and content

  OperationsTest() {
    // Each text of the product shrinks to what the tests ask for; its placeholders stay as they are shipped.
    std::ifstream shipped(MORVEX_DATA "/interfacetext.txt");
    std::string texts;
    for (std::string line; std::getline(shipped, line);) {
      const size_t key = line.find("$zeb_"), end = line.find(' ');
      if (key == line.npos || end == line.npos) continue;
      texts += line.substr(key, end - key) + " \"" + line.substr(key + 5, end - key - 5);
      for (size_t at = line.find('%'); at != line.npos; at = line.find('%', at + 1))
        texts += " " + line.substr(at, 2);
      texts += "\"\n";
    }
    Write("data/interfacetext.txt", texts);
    Start();
  }

  // All files below a folder; of configurations only that they are there.
  Files Tree(const std::string& folder) const {
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Path(folder))) {
      if (entry.is_directory()) continue;
      const std::string path = entry.path().lexically_relative(Path(folder)).string();
      files[path] = path.starts_with("config.") ? "" : GetFile(entry.path());
    }
    return files;
  }

  ZEBAssetInfo* Record(const KUID& kuid) { return ZEBAssetCache::Instance().Find(kuid); }
  std::string EditPath(const KUID& kuid) { return std::string(Record(kuid)->EditPath()); }
  std::string LocalPath(const KUID& kuid) { return std::string(Record(kuid)->LocalPath()); }
  // Which copies an asset has.
  std::string State(const KUID& kuid) {
    const ZEBAssetInfo* record = Record(kuid);
    if (record == nullptr) return "unknown";
    if (!record->IsInstalled()) return "known";
    return std::string(record->IsOpen() ? "open " : "") + (record->HasLocalCopy() ? "local " : "") +
           (record->IsInPack() ? "pack " : "");
  }

  // What was said since the last call: severity and text of each entry.
  std::string Said() {
    std::string words;
    log_.ForEach([&](const ResultsLog::Entry& entry) {
      words += std::to_string(static_cast<uint32_t>(entry.severity)) + " " + entry.text + "\n";
    });
    log_ = ResultsLog();
    return words;
  }

  // A folder as a creator has it.
  void WriteSource(const std::string& folder, const KUID& kuid, const std::string& build = "2.9") {
    Write(folder + "/config.txt", "kuid " + kuid.TagText() + "\nkind \"scenery\"\nmorvex-build " + build +
                                      "\nusername \"Big Engine (blue)\"\n");
    Write(folder + "/Mesh.IM", "mesh");
    Write(folder + "/art/Blue.TGA", kArt);
    Write(folder + "/Thumbs.db", "passed over");
  }
  size_t InstallFolder(const std::string& folder) {
    return ZEBInstallFromPath(Path(folder), &log_, nullptr, nullptr);
  }
  bool Commit(const KUID& kuid, uint32_t flags = 0) {
    ZEBAssetHandle handle = ZEBOpenAsset(kuid, true, nullptr);
    return ZEBCommitAssetEdits(handle, flags, &log_, nullptr);
  }
  // An asset in local/, and nothing else.
  void MakeCommitted(const KUID& kuid, const std::string& build = "2.9") {
    WriteSource("source", kuid, build);
    ASSERT_TRUE(InstallFolder("source") == 1 && Commit(kuid)) << Said();
    std::filesystem::remove_all(Path("source"));
    Said();
  }

  ResultsLog log_;
};

}  // namespace morvex
