// Bringing assets in from folders and packages, packing them and cloning them.

#include "database/catalogue/kuid_generator.h"
#include "database/operations/clone.h"
#include "database/operations/delete_asset.h"
#include "database/operations/install_asset.h"
#include "database/operations/make_package.h"
#include "packages/package_archive.h"
#include "packages/package_tags.h"
#include "tests/operations/operations_fixture.h"

namespace morvex {
namespace {

// Installs a package item whose files are stored as they are.
KUID InstallItem(const KUID& kuid, TagContainer files, ResultsLog& log) {
  TagContainer soup;
  if (!kuid.IsNull()) soup.SetKUID(PackageTags::kKuid, kuid);
  soup.SetFloat(Nox::PString("morvex-build"), 2.9F);
  soup.SetContainer(PackageTags::kFiles, files);
  KUID installed = kOther;
  ZEBInstallAsset(installed, PackageItem(soup), &log, kInstallCommit, nullptr);
  return installed;
}

void AddFile(TagContainer& files, const char* name) {
  files.SetRaw(Nox::PString(name), ACSRawDataCore::CopyBytes("content", 7));
}

TEST_F(OperationsTest, PackageGoesThereAndBack) {
  MakeCommitted(kAsset);
  MakeCommitted(kOther);
  const Files files = Tree(LocalPath(kAsset));
  TagContainer archive;
  for (const KUID& kuid : {kAsset, kOther})
    EXPECT_TRUE(morvex::AddAsset(archive, ZEBMakeAssetPackage(kuid, &log_)).Empty());
  ASSERT_TRUE(SaveArchive(archive, Path("two.cdp")).Empty());

  EXPECT_EQ(ZEBInstallPackageFile(Path("two.cdp"), &log_, kInstallCommit, nullptr), 0U);
  EXPECT_EQ(Said(), "2 already_installed <kuid:100:200>\n2 already_installed <kuid:100:201>\n");
  ZEBDeleteAsset(kAsset, true);
  EXPECT_EQ(ZEBInstallPackageFile(Path("two.cdp"), &log_, kInstallCommit, nullptr), 1U);
  EXPECT_EQ(Said(), "4 installed <kuid:100:200>\n2 already_installed <kuid:100:201>\n");
  EXPECT_EQ(Tree(LocalPath(kAsset)), files);

  Write("bad.cdp", "no package");
  EXPECT_EQ(ZEBInstallPackageFile(Path("bad.cdp"), &log_, kInstallCommit, nullptr), 0U);
  EXPECT_EQ(Said(), "3 unreadable_cdp " + Path("bad.cdp") + "\n");
}

TEST_F(OperationsTest, PackagingNamesWhatStopsIt) {
  MakeCommitted(kAsset);
  const std::string stray = Path(LocalPath(kAsset) + "/notes.doc");
  std::ofstream(stray) << "x";
  EXPECT_TRUE(ZEBMakeAssetPackage(kOther, &log_).IsEmpty());
  EXPECT_TRUE(ZEBMakeAssetPackage(kAsset, &log_).IsEmpty());
  std::filesystem::remove(stray);
  ZEBOpenAsset(kAsset, true, nullptr);
  EXPECT_TRUE(ZEBMakeAssetPackage(kAsset, &log_).IsEmpty());
  EXPECT_EQ(Said(), "3 unable_to_open <kuid:100:201>\n2 package_file_bad_ext " + stray +
                        "\n3 unable_read_files <kuid:100:200>\n3 already_open_for_edit <kuid:100:200>\n");
}

TEST_F(OperationsTest, HostilePackagesStayInTheirFolder) {
  TagContainer files, outside;
  for (const char* name : {"good.txt", "tool.exe", "../up.txt", "a/b.txt", "..", ".hidden.txt"})
    AddFile(files, name);
  AddFile(outside, "a.txt");
  for (const char* name : {"../outside", "..", "/tmp"})
    files.SetContainer(Nox::PString(name), outside);
  EXPECT_EQ(InstallItem(kAsset, files, log_), kAsset) << Said();
  EXPECT_EQ(Tree(LocalPath(kAsset)), (Files{{"config.chump", ""}, {"good.txt", "content"}}));
  EXPECT_EQ("local/" + Names("local"), LocalPath(kAsset) + " ");
}

TEST_F(OperationsTest, InstallThatFailsLeavesNothing) {
  TagContainer damaged;
  damaged.SetString(Nox::PString("a.txt"), "no file");
  AddFile(damaged, "b.txt");
  EXPECT_TRUE(InstallItem(kAsset, damaged, log_).IsNull());
  EXPECT_TRUE(InstallItem(KUID(), {}, log_).IsNull());
  EXPECT_EQ(Said(), "3 failed_install <kuid:100:200>\n3 write_error <NULL>\n");
  EXPECT_EQ(ZEBAssetCache::Instance().Count(), 0U);
  EXPECT_EQ(Names("editing") + Names("local"), "");
}

TEST_F(OperationsTest, ReplacingRules) {
  WriteSource("new", kAsset);
  MakeCommitted(kAsset);
  EXPECT_EQ(InstallFolder("new"), 1U);
  EXPECT_EQ(State(kAsset), "open local ");

  // An asset that is all of these is skipped for the first reason that holds.
  Record(kAsset)->Set(AssetFlag::kBuiltIn, true);
  Record(kAsset)->Set(AssetState::kDlsItem, true);
  InstallFolder("new");
  Record(kAsset)->SetText(AssetText::kEditPath, {});
  InstallFolder("new");
  Record(kAsset)->Set(AssetFlag::kBuiltIn, false);
  EXPECT_EQ(InstallFolder("new"), 1U);
  EXPECT_EQ(Said(),
            "4 installed <kuid:100:200>\n2 skipping_open_for_edit <kuid:100:200>\n"
            "2 skipping_built_in <kuid:100:200>\n2 skipping_dls_item <kuid:100:200>\n");
}

TEST_F(OperationsTest, NothingIsRemovedBehindALinkThatLeadsOut) {
  ScratchFolder outside;
  std::filesystem::remove(Path("editing"));
  std::filesystem::create_directory_symlink(outside.path(), Path("editing"));
  WriteSource("new", kAsset);
  EXPECT_EQ(InstallFolder("new"), 1U);
  EXPECT_EQ(Said(), "3 overwrite_error <kuid:100:200>\n");
}

TEST_F(OperationsTest, FoldersAreSearchedDownToTheFirstConfiguration) {
  WriteSource("tree/one", kAsset);
  WriteSource("tree/one/inner", KUID(100, 202, 0));  // no asset of its own
  WriteSource("tree/deep/er/two", kOther);
  Write("tree/nokuid/config.txt", "kind x");
  WriteSource("tree/wrong", KUID(100, 203, 0));
  Write("tree/wrong/notes.doc", "x");
  std::filesystem::create_directory_symlink(Path("tree"), Path("tree/loop"));
  EXPECT_EQ(InstallFolder("tree"), 4U);
  EXPECT_EQ(Said(), "4 installed <kuid:100:201>\n2 unable_read_config_at " + Path("tree/nokuid") +
                        "\n4 installed <kuid:100:200>\n2 package_file_bad_ext " +
                        Path("tree/wrong/notes.doc") + "\n2 skipping_asset_at " + Path("tree/wrong") + "\n");
  EXPECT_EQ(ZEBAssetCache::Instance().Count(), 2U);
  const std::atomic<uint8_t> cancelled{1};
  EXPECT_EQ(ZEBInstallFromPath(Path("tree"), &log_, nullptr, &cancelled), 0U);
}

TEST_F(OperationsTest, CloneIsANewAssetThatReplacesItsOriginal) {
  MakeCommitted(kAsset);
  const ZEBAssetHandle clone = ZEBCloneAsset(kAsset, false, &log_);
  ASSERT_FALSE(clone.IsEmpty()) << Said();
  const KUID kuid = clone.Record()->Kuid();
  EXPECT_EQ(Said(), "4 cloned <kuid:100:200> " + kuid.TagText() + "\n");
  EXPECT_TRUE(clone.Record()->Has(AssetState::kCloned));
  EXPECT_TRUE(Exists(EditPath(kuid) + "/mesh.im"));
  const TagContainer config = ZEBAssetCache::Instance().Config(*clone.Record());
  EXPECT_EQ(config.GetKUID(PackageTags::kKuid), kuid);
  EXPECT_EQ(config.GetContainer(PackageTags::kObsoleteTable).GetKUID(Nox::PString("0")), kAsset);
}

TEST_F(OperationsTest, NewVersionIsForTheAuthorAndTheLatest) {
  const KUID last(100, 200, 127);
  MakeCommitted(kAsset);
  MakeCommitted(last);
  EXPECT_TRUE(ZEBCloneAsset(kAsset, true, &log_).IsEmpty());
  ZEBSetBaseKuid(KUID(100, 5000, 0));
  const ZEBAssetHandle next = ZEBCloneAsset(kAsset, true, &log_);
  EXPECT_TRUE(ZEBCloneAsset(kAsset, true, &log_).IsEmpty()) << "the next version is there and isn't touched";
  EXPECT_EQ(State(KUID(100, 200, 1)), "open ");
  const ZEBAssetHandle fresh = ZEBCloneAsset(last, true, &log_);
  Record(kAsset)->Set(AssetFlag::kPermitEdit, false);
  EXPECT_TRUE(ZEBCloneAsset(kAsset, false, &log_).IsEmpty());
  EXPECT_EQ(Said(),
            "3 not_local_owner <kuid:100:200>\n4 cloned <kuid:100:200> <kuid2:100:200:1>\n"
            "3 asset_out_of_date <kuid:100:200>\n4 cloned <kuid2:100:200:127> <kuid:100:5001>\n"
            "3 clone_perm <kuid:100:200>\n");
}

}  // namespace
}  // namespace morvex
