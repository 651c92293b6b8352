// What the folders of an installation say of its assets.

#include <gtest/gtest.h>

#include "database/catalogue/asset_status.h"
#include "database/catalogue/pack_table.h"
#include "database/catalogue/temporary_folders.h"
#include "tests/catalogue/installation.h"
#include "tests/engine/zip_maker.h"

namespace morvex::test {
namespace {

TEST(RebuildTest, FindsTheAssetsOfAllFolders) {
  Installation place;
  place.AddAsset("trains/group/engine", "<kuid:-1:10>", "Engine");
  place.AddAsset("world/Alps/group/rock", "<kuid:-1:11>", "Rock");
  place.AddAsset("trains/too-high", "<kuid:-1:12>", "Not two levels deep");
  place.AddAsset("local/engine", "<kuid:-1:10>", "My engine");
  place.AddAsset("editing/rock", "<kuid:-1:11>", "Edited rock");
  place.AddAsset("editing/new", "<kuid:1:1>", "New");
  place.Write("local/noise/readme.txt", "no configuration");
  place.Write("local/unknown/config.txt", "username x\r\n");
  place.Write("local/broken/config.chump", "ACS$");
  place.AddAsset("local/broken", "<kuid:1:2>", "Text behind a broken chump");
  place.Write("local/upper/CONFIG.TXT", "kuid <kuid:1:3>\r\n");
  place.Start();
  const char* const kCopies[][2] = {{"<kuid:-1:10>", "eLP"}, {"<kuid:-1:11>", "ElP"}, {"<kuid:-1:12>", "-"},
                                    {"<kuid:1:1>", "Elp"},   {"<kuid:1:2>", "eLp"},   {"<kuid:1:3>", "eLp"}};
  for (const auto& [kuid, copies] : kCopies)
    EXPECT_EQ(Copies(kuid), copies) << kuid;
  EXPECT_EQ(Record("<kuid:-1:10>").Username(), "My engine");
  EXPECT_GT(Record("<kuid:1:1>").Numbers().installedTime, 0U);
  EXPECT_EQ(Record("<kuid:1:3>").Username(), "upper") << "named after its folder";
  const ZEBAssetInfo& rock = Record("<kuid:-1:11>");
  EXPECT_EQ(rock.Username(), "Rock") << "an open asset says what its committed copy says";
  EXPECT_EQ(std::string(rock.PackName()) + " " + std::string(rock.PackPath()), "world/alps group/rock");
  EXPECT_TRUE(rock.Has(AssetFlag::kBuiltIn));
  EXPECT_EQ(rock.FolderSize(), 0);
  EXPECT_EQ(rock.Numbers().installedTime, 0);
  EXPECT_EQ(ZEBAssetCache::Instance().Count(), 5U);
}

TEST(RebuildTest, FindsTheAssetsOfArchives) {
  Installation place;
  place.AddAsset("local/rock", "<kuid:-1:11>", "My rock");
  place.Write("world/readme.txt", "neither folder nor archive");
  place.Write("world/broken.ja", "no archive");
  ASSERT_TRUE(PutZip(place.Path("world/Alps.JA"),
                     {{"group/rock/config.txt", "kuid <kuid:-1:11>\nusername \"Rock\"\n"},
                      {"group/rock/rock.im", "mesh"},
                      {"group/tree/Config.Txt", "kuid <kuid:-1:12>\nusername \"Tree\"\n"},
                      {"../outside/up/config.txt", "kuid <kuid:-1:13>\n"},
                      {"config.txt", "kuid <kuid:-1:14>\n"}}));
  place.Start();
  EXPECT_EQ(ViewText(), "-1:11 -1:12");
  EXPECT_EQ(Copies("<kuid:-1:11>"), "eLP");
  EXPECT_EQ(Record("<kuid:-1:12>").PackName(), "world/alps");
  EXPECT_EQ(Record("<kuid:-1:12>").PackPath(), "group/tree");
  EXPECT_EQ(ZEBGetAssetConfig(Parse("<kuid:-1:12>")).GetText(Nox::PString("username")), "Tree");
  place.Restart();
  EXPECT_EQ(Copies("<kuid:-1:12>"), "elP") << "from the index, with the archive closed in between";
}

TEST(RebuildTest, FillsARecordFromItsConfiguration) {
  Installation place;
  const std::string config =
      "kuid <kuid:1:1>\r\nusername \" Alpine Day \"\r\nkind \"profile\"\r\nmap-kuid <kuid:1:9>\r\n"
      "company \"Swiss (Alps) Ltd\"\r\nproduct-type \"ReSkin\"\r\norigin \"Germany\"\r\ncategory-era-0 "
      "\"1950s\"\r\n"
      "morvex-build 2.5\r\nsecret 1\r\nkuid-table { a <kuid:1:9>\r\n}\r\n";
  place.Write("local/a/config.txt", config);
  place.Write("local/a/art/icon.tga", std::string(100, 'x'));
  place.Start();
  const ZEBAssetInfo& record = Record("<kuid:1:1>");
  EXPECT_EQ(record.CategoryClass(), "SS");
  EXPECT_EQ(record.DisplayName(), "Alpine Day");
  EXPECT_EQ(record.Text(AssetText::kRegionList), "DE");
  EXPECT_EQ(record.Text(AssetText::kEraList), "1950");
  EXPECT_EQ(record.Text(AssetText::kKeywords), "swiss;alps;ltd");
  EXPECT_EQ(record.Numbers().mapKuid, KUID(1, 9, 0));
  EXPECT_EQ(record.Numbers().build, 2.5F);
  EXPECT_EQ(record.FolderSize(), config.size() + 100);
  EXPECT_TRUE(record.Has(AssetState::kReskin));
  EXPECT_FALSE(record.PermitListing());
  EXPECT_EQ(ZEBAssetCache::Instance().dependencies.DependenciesOf(KUID(1, 1, 0)), std::vector{KUID(1, 9, 0)});
}

TEST(RebuildTest, PrivilegesBindBuiltInAssetsOfNewBuilds) {
  Installation place;
  const std::string kPrivileges = "privileges { permit-edit 0\r\npermit-commit 0\r\n}\r\n";
  place.AddAsset("trains/g/a", "<kuid:-1:1>", "a", "morvex-build 2.5\r\n" + kPrivileges);
  place.AddAsset("local/b", "<kuid:-1:2>", "b", "morvex-build 2.5\r\n" + kPrivileges);
  place.AddAsset("trains/g/c", "<kuid:-1:3>", "c", "morvex-build 2.4\r\nsecret 1");
  place.AddAsset("trains/g/d", "<kuid:-1:4>", "d",
                 "morvex-build 2.4\r\nsecret 1\r\nproduct-type \"Template\"");
  place.AddAsset("trains/g/e", "<kuid:-1:5>", "e", "morvex-build 2.4\r\n" + kPrivileges);
  place.Start();
  const std::tuple<const char*, bool, bool> kRows[] = {{"<kuid:-1:1>", false, true},
                                                       {"<kuid:-1:2>", true, true},
                                                       {"<kuid:-1:3>", true, true},
                                                       {"<kuid:-1:4>", true, false},
                                                       {"<kuid:-1:5>", false, true}};
  for (const auto& [kuid, edit, listing] : kRows) {
    EXPECT_EQ(Record(kuid).Has(AssetFlag::kPermitEdit), edit) << kuid;
    EXPECT_EQ(Record(kuid).Has(AssetFlag::kPermitCommit), edit) << kuid;
    EXPECT_EQ(Record(kuid).PermitListing(), listing) << kuid;
  }
}

TEST(RebuildTest, OfTwoFoldersWithOneKuidTheFirstCounts) {
  Installation place;
  place.AddAsset("local/b", "<kuid:1:1>", "Second");
  place.AddAsset("local/A", "<kuid:1:1>", "First");
  place.Start();
  EXPECT_EQ(Record("<kuid:1:1>").LocalPath(), "local/A");
  EXPECT_EQ(Record("<kuid:1:1>").Username(), "First");
}

TEST(RefreshTest, KeepsWhatAnOpenAssetSaysUntilTheEditEnds) {
  Installation place;
  place.AddAsset("local/a", "<kuid:1:1>", "Committed");
  place.Start();
  const ZEBAssetLock lock(true);
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  ZEBAssetInfo& record = Record("<kuid:1:1>");
  place.AddAsset("editing/a", "<kuid:1:1>", "Edited");
  record.SetText(AssetText::kEditPath, "editing/a");
  EXPECT_FALSE(cache.Refresh(record));
  EXPECT_EQ(record.Username(), "Committed");
  place.Remove("local/a");
  EXPECT_TRUE(cache.Refresh(record)) << "the edit is all that is left";
  EXPECT_EQ(record.Username(), "Edited");
  place.Remove("editing/a");
  EXPECT_TRUE(cache.Refresh(record));
  EXPECT_FALSE(record.IsInstalled());
}

TEST(PackTableTest, SweepsUnusedPacksWhenFullAndRefusesThenNone) {
  ScratchFolder root;
  std::vector<MorvexResourceDatabase*> packs;
  for (size_t i = 0; i < kMaxPacks; ++i)
    packs.push_back(ZEBMountPack(Nox::PString("pack" + std::to_string(i)), root.path()));
  EXPECT_EQ(ZEBMountPack(Nox::PString("pack7"), root.path()), packs[7]) << "counted up";
  EXPECT_EQ(ZEBMountPack(Nox::PString("one more"), root.path()), nullptr);
  ZEBUnmountPack(packs[7]);
  EXPECT_EQ(ZEBMountPack(Nox::PString("one more"), root.path()), nullptr);
  ZEBUnmountPack(packs[7]);
  EXPECT_NE(ZEBMountPack(Nox::PString("one more"), root.path()), nullptr);
  ZEBUnmountPack(nullptr);
  ZEBUnmountAllPacks();
}

TEST(TemporaryFolderTest, KnowsTheNames) {
  for (const char* name : {"tempab12cd341", "temp000000000"})
    EXPECT_TRUE(IsTemporaryFolder(name)) << name;
  for (const char* name :
       {"temp", "tempab12cd34", "Tempab12cd341", "temple gardens", "tempab12CD341", "tempab12cd34x"})
    EXPECT_FALSE(IsTemporaryFolder(name)) << name;
}

}  // namespace
}  // namespace morvex::test
