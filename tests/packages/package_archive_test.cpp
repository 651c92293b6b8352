#include "packages/package_archive.h"

#include <functional>

#include "tagdata/chump_file.h"
#include "tagdata/kuid_list.h"
#include "tests/packages/package_fixture.h"

namespace morvex {
namespace {

constexpr const char* kNotAPackage = "Content could not be read, as the file is not a valid CDP";

KUID Id(int number) {
  return KUID(100, number, 0);
}

// Asset `number`, which needs and makes obsolete what is listed.
PackageItem Asset(int number, std::initializer_list<int> needs = {},
                  std::initializer_list<int> replaces = {}) {
  PackageItem item;
  item.soup.SetKUID(PackageTags::kKuid, Id(number));
  for (const int needed : needs)
    item.soup.SetString(Nox::PString("needs" + std::to_string(needed)), Id(needed).TagText());
  KUIDList old;
  for (const int number2 : replaces)
    old.Add(Id(number2));
  item.soup.SetContainer(PackageTags::kObsoleteTable, old.ToContainer());
  return item;
}

std::string Table(const TagContainer& archive, Nox::PString name) {
  std::string text;
  const TagContainer table = archive.GetContainer(name);
  for (uint32_t i = 0; i < table.GetCount(); ++i) {
    const Nox::PString tag = table.GetName(i);
    text += (i == 0 ? "" : " ") + tag.Text() + "=" + std::to_string(table.GetKUID(tag).contentId);
  }
  return text;
}

class PackageArchiveTest : public PackageTest {
 protected:
  std::string Open(const std::string& name) {
    return OpenArchive(archive_, Nox::PString(), scratch_ / name).Text();
  }

  TagContainer archive_;
};

TEST_F(PackageArchiveTest, ListsWhatItHoldsLacksAndReplaces) {
  EXPECT_EQ(AddAsset(archive_, Asset(1, {2, 3}, {9})), "");
  EXPECT_EQ(AddAsset(archive_, Asset(2, {4, 9}, {9, 8, 2})), "");
  EXPECT_EQ(AddAsset(archive_, Asset(8)), "");
  std::string order;
  for (uint32_t i = 0; i < archive_.GetCount(); ++i)
    order += archive_.GetName(i).Text() + " ";
  EXPECT_EQ(order, "assets contents-table kuid-table obsolete-table kind package-version ");
  EXPECT_EQ(Table(archive_, PackageTags::kContentsTable), "0=1 1=2 2=8");
  EXPECT_EQ(Table(archive_, PackageTags::kKuidTable), "0=3 1=4");
  EXPECT_EQ(Table(archive_, PackageTags::kObsoleteTable), "0=9");
  EXPECT_EQ(archive_.GetContainer(PackageTags::kAssets).GetName(0), "<kuid:100:1>");

  EXPECT_EQ(AddAsset(archive_, Asset(1)),
            "Unable to add content as an item with KUID <kuid:100:1> is already present");
  EXPECT_EQ(AddAsset(archive_, PackageItem()), "Unable to add content as it doesnt not contain a valid KUID");
  EXPECT_EQ(FindAsset(archive_, Id(8)), 2);
  EXPECT_EQ(FindAsset(archive_, Id(9)), -1);

  EXPECT_EQ(RemoveAsset(archive_, 3), "Unable to remove specified asset");
  EXPECT_EQ(RemoveAsset(archive_, 1), "");
  EXPECT_EQ(Table(archive_, PackageTags::kContentsTable), "0=1 1=8");
  EXPECT_EQ(Table(archive_, PackageTags::kKuidTable), "0=2 1=3");
}

TEST_F(PackageArchiveTest, BuilderAgreesWithAddAsset) {
  PackageBuilder builder;
  EXPECT_TRUE(builder.Finish().IsEmpty());
  for (int i = 0; i < 120; ++i) {
    const PackageItem item = Asset(i * 7 % 100, {i, i * 3 % 150, i + 1}, {i / 2, i * 5 % 40});
    EXPECT_EQ(builder.Add(item), AddAsset(archive_, item));
  }
  EXPECT_EQ(builder.Add(PackageItem()), AddAsset(archive_, PackageItem()));
  EXPECT_EQ(ChumpImage(builder.Finish()), ChumpImage(archive_));
}

TEST_F(PackageArchiveTest, ComesBackFromDiskAsItWas) {
  for (const int number : {3, 1, 2})
    ASSERT_EQ(AddAsset(archive_, Asset(number, {7})), "");
  const std::string image = ChumpImage(archive_);
  for (const char* name : {"x.cdp", "x.cdp2", "x.CHUMP", "x.txt"}) {
    ASSERT_EQ(SaveArchive(archive_, scratch_ / name), "");
    ASSERT_EQ(Open(name), "") << name;
    ASSERT_EQ(GetAssetCount(archive_), 3u);
    EXPECT_EQ(GetAssetAt(archive_, 2).GetKUID(), Id(2));
    EXPECT_TRUE(GetAssetAt(archive_, 3).IsEmpty());
  }
  EXPECT_EQ(GetFile(scratch_ / "x.cdp"), image);
}

TEST_F(PackageArchiveTest, AFailedSaveLeavesNothing) {
  const char* failure = "Unable to write archive file. Needs to be .cdp file extension";
  ASSERT_EQ(AddAsset(archive_, Asset(1)), "");
  EXPECT_EQ(SaveArchive(archive_, scratch_ / "x.zip"), failure);
  EXPECT_EQ(SaveArchive(archive_, scratch_ / "missing/x.cdp"), failure);
  EXPECT_EQ(Tree(scratch_.path()), "");
}

TEST_F(PackageArchiveTest, FirstFaultDecidesWhyAFileIsRefused) {
  const char* newer = "This content requires a newer Morvex version";
  const char* damaged = "Content could not be read, as the CDP file is damaged";
  const std::pair<const char*, std::function<void(TagContainer&)>> cases[] = {
      {"", [](TagContainer& a) { a.SetString(PackageTags::kKind, "ARCHIVE"); }},
      {newer, [](TagContainer& a) { a.SetInt(PackageTags::kVersion, 2); }},
      {newer, [](TagContainer& a) { a.Remove(PackageTags::kVersion); }},
      {damaged,
       [](TagContainer& a) {
         a = TagContainer(), a.SetString(PackageTags::kKind, "archive"),
         a.SetContainer(PackageTags::kContentsTable, Asset(1).soup);
       }},
      {kNotAPackage, [](TagContainer& a) { a.SetString(PackageTags::kKind, "scenery"); }},
      {kNotAPackage, [](TagContainer& a) { a.Clear(); }},
  };
  for (const auto& [error, change] : cases) {
    TagContainer archive;
    ASSERT_EQ(AddAsset(archive, Asset(1)), "");
    change(archive);
    ASSERT_EQ(SaveArchive(archive, scratch_ / "x.cdp"), "");
    EXPECT_EQ(Open("x.cdp"), error);
    EXPECT_EQ(archive_.IsEmpty(), *error != 0);
  }
  EXPECT_EQ(Open("missing.cdp"), kNotAPackage);
}

}  // namespace
}  // namespace morvex
