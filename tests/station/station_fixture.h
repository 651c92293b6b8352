#pragma once

#include <gtest/gtest.h>
#include <zlib.h>

#include <string>

#include "tests/catalogue/installation.h"
#include "tests/net/server_process.h"

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
class StationTest : public testing::Test, protected test::Installation {
 protected:
  StationTest() { Start(); }

  ZEBAssetCache& Cache() { return ZEBAssetCache::Instance(); }
  DownloadStationState& State() { return Cache().station; }
  // A file of the test; its path.
  std::string File(const std::string& content, const std::string& name = "answer") {
    Write(name, content);
    return Path(name);
  }
  // "name|class|build|D" of a record; empty if there is none.
  std::string Shown(const KUID& kuid) {
    const ZEBAssetInfo* record = Cache().Find(kuid);
    if (record == nullptr) return {};
    const std::string build = std::to_string(static_cast<int>(record->Numbers().build * 10 + 0.5F));
    return std::string(record->DisplayName()) + "|" + std::string(record->CategoryClass()) + "|" + build +
           (record->Has(AssetState::kOnStation) ? "|D" : "|");
  }
};

}  // namespace morvex
