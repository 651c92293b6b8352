#pragma once

#include <gtest/gtest.h>
#include <zlib.h>

#include <string>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "database/catalogue/folder_setup.h"
#include "tests/net/server_process.h"
#include "tests/scratch_folder.h"

namespace morvex {

// The gzip form of a text.
inline std::string Gzip(const std::string& text) {
  const ScratchFolder scratch;
  const std::string path = scratch / "x.gz";
  const gzFile file = gzopen(path.c_str(), "wb");
  gzwrite(file, text.data(), static_cast<unsigned>(text.size()));
  gzclose(file);
  return GetText(path);
}

// A fresh installation with a running database.
class StationTest : public testing::Test {
 protected:
  StationTest() { Start(); }
  ~StationTest() override { Stop(); }

  void Start() {
    ZEBPrepareFolders(root_.path());
    ZEBInit({.root = root_.path()});
    const ZEBAssetLock loaded(true);
  }
  void Stop() {
    ZEBShutdown();
    ZEBReleaseFolders();
  }
  ZEBAssetCache& Cache() { return ZEBAssetCache::Instance(); }
  DownloadStationState& State() { return Cache().station; }
  // A file of the test; its path.
  std::string File(const std::string& content, const std::string& name = "answer") {
    PutText(root_ / name, content);
    return root_ / name;
  }
  // "name|class|build|D" of a record; empty if there is none.
  std::string Shown(const KUID& kuid) {
    const ZEBAssetInfo* record = Cache().Find(kuid);
    if (record == nullptr) return {};
    const std::string build = std::to_string(static_cast<int>(record->Numbers().build * 10 + 0.5F));
    return std::string(record->DisplayName()) + "|" + std::string(record->CategoryClass()) + "|" + build +
           (record->Has(AssetState::kOnStation) ? "|D" : "|");
  }

  const ScratchFolder root_;
};

}  // namespace morvex
