#include "database/operations/upload.h"

#include <gtest/gtest.h>

#include "database/catalogue/asset_lock.h"
#include "database/catalogue/kuid_generator.h"
#include "net/transfer/download_manager.h"
#include "packages/package_archive.h"
#include "tests/net/hostile_peer.h"
#include "tests/net/station_server.h"
#include "tests/operations/operations_fixture.h"

namespace morvex {
namespace {

class UploadTest : public OperationsTest {
 protected:
  UploadTest() {
    { const ZEBAssetLock loaded(true); }
    ZEBSetBaseKuid(KUID(100, 5000, 0));
  }

  void Upload(std::initializer_list<KUID> kuids, std::uint16_t port) {
    KUIDList list;
    for (const KUID& kuid : kuids)
      list.Add(kuid);
    DownloadManager downloads(Path("cache/internet"));
    DownloadSettings settings;
    settings.webServer = {"localhost", port};
    settings.username = "me";
    settings.password = "secret";
    downloads.SetSettings(settings);
    ZEBUploadAssets(list, log_, downloads);
  }
};

TEST_F(UploadTest, SendsOnePackage) {
  MakeCommitted(kAsset);
  MakeCommitted(kOther);
  StationServer station;
  Upload({kAsset, kOther}, station.Port());
  EXPECT_EQ(Said(), "4 upload_complete\n4 upload_complete\n");
  Write("sent.cdp", station.Uploaded("UL_File"));
  TagContainer package;
  ASSERT_TRUE(OpenArchive(package, {}, Path("sent.cdp")).Empty());
  EXPECT_EQ(GetAssetCount(package), 2U);
  EXPECT_EQ(FindAsset(package, kOther), 1);
  const std::pair<const char*, const char*> kFields[] = {
      {"UL_LanguageID", "EN"}, {"UL_PreviewArea", "1"},     {"Agreetotext", "1"},
      {"UL_ProductID", "5"},   {"UL_UploadType", "INSERT"}, {"ProfileGroupID", "0"},
  };
  for (const auto& [name, value] : kFields)
    EXPECT_EQ(station.Uploaded(name), value) << name;

  station.SetUploadAnswer("result \"too many assets\"\n");
  Upload({kAsset}, station.Port());
  EXPECT_EQ(Said(), "3 upload_failed_generic too many assets\n");
  station.SetUploadAnswer("Thank you.\n");
  Upload({kAsset}, station.Port());
  EXPECT_EQ(Said(), "4 upload_complete\n");
}

TEST_F(UploadTest, OneThatMayNotGoStopsAll) {
  const std::pair<KUID, const char*> kRows[] = {
      {KUID(100, 1, 0), "asset_not_built_in"},    {KUID(100, 2, 0), "asset_already_on_dls"},
      {KUID(100, 3, 0), "already_open_for_edit"}, {KUID(100, 4, 0), "upload_asset_faulty"},
      {KUID(7, 1, 0), "upload_asset_not_local"},  {KUID(100, 6, 0), "asset_not_local"},
  };
  MakeCommitted(kAsset);
  // Each also has what is asked for behind its own reason.
  for (int i = 0; i < 5; ++i) {
    MakeCommitted(kRows[i].first);
    ZEBAssetInfo& record = *Record(kRows[i].first);
    record.Set(AssetFlag::kBuiltIn, i == 0);
    record.Set(AssetState::kOnStation, i <= 1);
    if (i <= 2) record.SetText(AssetText::kEditPath, "editing/x");
    record.Set(AssetFlag::kHasErrors, i <= 3);
  }
  HostilePeer nobody([](PeerSocket& peer) { peer.Reset(); });
  for (const auto& [kuid, key] : kRows) {
    Upload({kuid, kAsset}, nobody.Port());
    EXPECT_EQ(Said(), std::string("3 ") + key + " " + kuid.TagText() + "\n");
  }
  // One that can't be packaged, and the same twice.
  Write(LocalPath(kAsset) + "/notes.doc", "x");
  Upload({kAsset}, nobody.Port());
  EXPECT_NE(Said().find("3 upload_read_error Unable to add content"), std::string::npos);
  std::filesystem::remove(Path(LocalPath(kAsset) + "/notes.doc"));
  Upload({kAsset, kAsset}, nobody.Port());
  EXPECT_NE(Said().find("is already present"), std::string::npos);
  Upload({}, nobody.Port());
  EXPECT_EQ(Said(), "");
  EXPECT_EQ(nobody.Connections(), 0);
}

TEST_F(UploadTest, TellsWhatTheNetworkSays) {
  MakeCommitted(kAsset);
  {
    const FreePort nobody;
    Upload({kAsset}, nobody.Number());
    EXPECT_EQ(Said(), "3 upload_failed_network 2\n");
  }
  NginxServer refusing("location / { return 500; }");
  Upload({kAsset}, refusing.TlsPort());
  EXPECT_EQ(Said(), "3 upload_failed_network 7\n");
}

}  // namespace
}  // namespace morvex
