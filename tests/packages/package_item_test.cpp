#include "packages/package_item.h"

#include "packages/fingerprint.h"
#include "packages/package_tags.h"
#include "tagdata/kuid_list.h"
#include "tests/packages/package_fixture.h"

namespace morvex {
namespace {

const KUID kOwn(100, 200, 0);

PackageItem MakeItem(TagContainer* kuidTable = nullptr) {
  TagContainer config;
  config.SetKUID(PackageTags::kKuid, kOwn);
  config.SetString(Nox::PString("kind"), "Scenery");
  config.SetString(Nox::PString("text"), "<kuid:100:200>");
  config.SetString(Nox::PString("needs"), "<kuid:1:1>");
  config.SetString(Nox::PString("instead"), "<kuid:2:2>");
  KUIDList old;
  old.Add(KUID(2, 2, 0));
  config.SetContainer(PackageTags::kObsoleteTable, old.ToContainer());
  if (kuidTable != nullptr) config.SetContainer(PackageTags::kKuidTable, *kuidTable);
  PackageItem item;
  item.SetConfig(config);
  item.SetFiles(TagContainer());
  return item;
}

// The tags of a soup in order, a table of KUIDs in full: "kuid kuid-table(0=<kuid:1:1>)".
std::string Tags(const TagContainer& soup) {
  std::string tags;
  for (uint32_t i = 0; i < soup.GetCount(); ++i) {
    const Nox::PString name = soup.GetName(i);
    tags += (i == 0 ? "" : " ") + name.Text();
    const TagContainer table = soup.GetContainer(name);
    for (uint32_t k = 0; k < table.GetCount(); ++k)
      tags += "(" + table.GetName(k).Text() + "=" + table.GetString(table.GetName(k)).Text() + ")";
  }
  return tags;
}

TEST(PackageItem, ExtractConfigDropsThePackageAndAddsDependencies) {
  PackageItem item = MakeItem();
  EXPECT_EQ(Tags(item.soup), "kuid kind text needs instead obsolete-table(0=<kuid:2:2>) compression files");
  item.soup.SetString(PackageTags::kDsid, "0:1");
  item.soup.SetString(PackageTags::kFolderIcon, "icon");
  item.soup.SetString(PackageTags::kCache, "cached");
  TagContainer config;
  item.ExtractConfig(config);
  EXPECT_EQ(Tags(config),
            "kuid text needs instead obsolete-table(0=<kuid:2:2>) kind kuid-table(0=<kuid:1:1>)");
  EXPECT_EQ(config.GetString(Nox::PString("kind")), "scenery");
}

TEST(PackageItem, NewDependenciesGoOnBehindTheHighestNumber) {
  TagContainer table;
  table.SetKUID(Nox::PString("0"), KUID(5, 5, 0));
  table.SetKUID(Nox::PString("7"), KUID(6, 6, 0));
  table.SetKUID(Nox::PString("name"), KUID());
  TagContainer config;
  MakeItem(&table).ExtractConfig(config);
  EXPECT_EQ(Tags(config.GetContainer(PackageTags::kKuidTable)), "0 7 name 8");
  EXPECT_EQ(config.GetContainer(PackageTags::kKuidTable).GetKUID(Nox::PString("8")), KUID(1, 1, 0));
}

TEST(Fingerprint, HashesWholeWordsOfStoredBytes) {
  const uint8_t bytes[] = {1, 0, 0, 0, 0, 0, 0, 0x80, 9};
  EXPECT_EQ(BlockFingerprint({bytes, 4}), (Fingerprint{0, 0}));
  EXPECT_EQ(BlockFingerprint({bytes, 5}), (Fingerprint{2, 4}));
  // (2 + 0x80000000) shifted by one, and its top two bits at the low end.
  EXPECT_EQ(BlockFingerprint(bytes), (Fingerprint{6, 8}));
  TagContainer files;
  files.SetRaw(Nox::PString("a"), ACSRawDataCore::CopyBytes(bytes, 4));
  EXPECT_EQ(DsidText(files), "0:1");
  TagContainer art;
  art.SetRaw(Nox::PString("b"), ACSRawDataCore::CopyBytes(bytes, 9));
  files.SetContainer(Nox::PString("art"), art);
  EXPECT_EQ(DsidText(files), "8:7");

  PackageItem item;
  item.SetFiles(files);
  EXPECT_FALSE(item.CheckDsid());
  item.UpdateDsid();
  EXPECT_TRUE(item.CheckDsid());
}

}  // namespace
}  // namespace morvex
