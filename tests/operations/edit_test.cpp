// Opening, committing, reverting and deleting, and the folders that come of it.

#include "database/catalogue/asset_lock.h"
#include "database/catalogue/config_reader.h"
#include "database/operations/asset_validator.h"
#include "database/operations/delete_asset.h"
#include "database/operations/revert.h"
#include "tests/operations/operations_fixture.h"

namespace morvex {
namespace {

TEST_F(OperationsTest, InstalledFolderIsOpenAndCommitRenamesIt) {
  WriteSource("source", kAsset);
  EXPECT_EQ(InstallFolder("source"), 1U);
  EXPECT_EQ(Said(), "4 installed <kuid:100:200>\n");
  EXPECT_EQ(State(kAsset), "open ");
  EXPECT_EQ(Tree(EditPath(kAsset)), (Files{{"art/blue.tga", kArt}, {"config.txt", ""}, {"mesh.im", "mesh"}}));

  std::filesystem::create_hard_link(Path(EditPath(kAsset) + "/mesh.im"), Path("mesh"));
  EXPECT_TRUE(Commit(kAsset));
  EXPECT_EQ(State(kAsset), "local ");
  EXPECT_EQ(Tree(LocalPath(kAsset)),
            (Files{{"art/blue.tga", kArt}, {"config.chump", ""}, {"mesh.im", "mesh"}}));
  EXPECT_TRUE(std::filesystem::equivalent(Path(LocalPath(kAsset) + "/mesh.im"), Path("mesh")))
      << "a copied file";
  EXPECT_EQ(Names("editing") + "local/" + Names("local"), LocalPath(kAsset) + " ");
}

TEST_F(OperationsTest, EditIsRepeatableAndRevertTakesItBack) {
  MakeCommitted(kAsset);
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(ZEBOpenAsset(kAsset, true, &log_).IsEmpty());
    EXPECT_EQ(EditPath(kAsset), "editing/Big Engine _blue_");
    EXPECT_EQ(Exists(EditPath(kAsset) + "/new.txt"), i == 1);
    Write(EditPath(kAsset) + "/new.txt", "mine");
  }
  const ZEBAssetHandle reading = ZEBOpenAsset(kAsset, false, &log_);
  EXPECT_TRUE(ZEBRevertAssetEdits(reading));
  EXPECT_FALSE(ZEBRevertAssetEdits(reading)) << "not open any longer";
  EXPECT_EQ(State(kAsset) + Names("editing") + Said(), "local ");

  WriteSource("source", kOther);  // never committed: it takes a handle for edit, and nothing is left
  InstallFolder("source");
  EXPECT_TRUE(ZEBOpenAsset(kOther, false, &log_).IsEmpty());
  EXPECT_EQ(Said(), "4 installed <kuid:100:201>\n3 not_committed <kuid:100:201>\n");
  const ZEBAssetHandle handle = ZEBOpenAsset(kOther, true, nullptr);
  EXPECT_TRUE(ZEBRevertAssetEdits(handle));
  EXPECT_TRUE(handle.IsEmpty());
}

TEST_F(OperationsTest, CommitNamesWhatIsWrongAndLosesNothing) {
  using Folder = const std::filesystem::path&;
  const std::pair<std::string, void (*)(Folder edit, Folder local)> cases[] = {
      {"3 commit_missing_config %\n",
       [](Folder edit, Folder) { std::filesystem::remove(edit / "config.txt"); }},
      {"3 commit_duplicate_config %\n",
       [](Folder edit, Folder) { std::ofstream(edit / "config.chump") << "x"; }},
      {"3 package_file_bad_ext a.exe\n3 commit_invalid_files %\n",
       [](Folder edit, Folder) { std::ofstream(edit / "a.exe") << "x"; }},
      // A configuration that says nothing, and one in the target that can't be opened.
      {"3 commit_file_error %\n", [](Folder edit, Folder) { std::ofstream(edit / "config.txt"); }},
      {"3 commit_file_error %\n",
       [](Folder, Folder local) {
         std::filesystem::remove(local / "config.chump");
         std::filesystem::create_directory(local / "config.chump");
       }},
  };
  MakeCommitted(kAsset);
  for (const auto& [said, spoil] : cases) {
    ASSERT_FALSE(ZEBOpenAsset(kAsset, true, nullptr).IsEmpty());
    spoil(Path(EditPath(kAsset)), Path(LocalPath(kAsset)));
    const Files edited = Tree(EditPath(kAsset));
    const Files local = Tree(LocalPath(kAsset));
    EXPECT_FALSE(Commit(kAsset));
    EXPECT_EQ(Said(), std::string(said).replace(said.find('%'), 1, "<kuid:100:200>"));
    ASSERT_EQ(State(kAsset), "open local ");
    EXPECT_EQ(Tree(EditPath(kAsset)), edited) << said;
    EXPECT_EQ(Tree(LocalPath(kAsset)), local) << said;
    EXPECT_EQ("local/" + Names("local"), LocalPath(kAsset) + " ");
    ZEBRevertAssetEdits(ZEBOpenAsset(kAsset, false, nullptr));
  }
}

TEST_F(OperationsTest, CommitFlagsAndPermissions) {
  MakeCommitted(kAsset);
  EXPECT_TRUE(Commit(kAsset, kCommitKeepOpen));
  EXPECT_EQ(State(kAsset), "open local ");
  const std::string mesh = Path("mesh");
  std::filesystem::create_hard_link(Path(EditPath(kAsset) + "/mesh.im"), mesh);
  Record(kAsset)->Set(AssetFlag::kPermitCommit, false);
  EXPECT_FALSE(Commit(kAsset));
  Record(kAsset)->Set(AssetFlag::kPermitCommit, true);
  Write(EditPath(kAsset) + "/tool.exe", "x");
  EXPECT_TRUE(Commit(kAsset, kCommitToPack | kCommitUnchecked));
  EXPECT_EQ(State(kAsset) + std::string(Record(kAsset)->PackName()), "pack local");
  const std::string pack = "local/" + std::string(Record(kAsset)->PackPath());
  EXPECT_TRUE(Exists(pack + "/tool.exe"));
  EXPECT_TRUE(std::filesystem::equivalent(Path(pack + "/mesh.im"), mesh)) << "a copied file";
  Record(kAsset)->Set(AssetFlag::kPermitEdit, false);
  EXPECT_TRUE(ZEBOpenAsset(kAsset, true, &log_).IsEmpty());
  EXPECT_EQ(Said(), "3 commit_perm <kuid:100:200>\n3 edit_perm <kuid:100:200>\n");
}

TEST_F(OperationsTest, FoldersThatCannotBeMadeAreNamedAndNothingIsLost) {
  MakeCommitted(kAsset);
  WriteSource("source", kOther);
  InstallFolder("source");
  ZEBAssetHandle stale = ZEBOpenAsset(kAsset, true, nullptr);
  ZEBRevertAssetEdits(ZEBOpenAsset(kAsset, false, nullptr));
  EXPECT_FALSE(ZEBCommitAssetEdits(stale, 0, &log_, nullptr)) << "closed meanwhile through another handle";

  std::filesystem::rename(Path("local"), Path("kept"));
  Write("local", "a file in the way");
  EXPECT_FALSE(Commit(kOther));
  std::filesystem::remove(Path("local"));
  std::filesystem::rename(Path("kept"), Path("local"));
  EXPECT_TRUE(Commit(kOther));

  std::filesystem::remove(Path("editing"));
  Write("editing", "a file in the way");
  EXPECT_TRUE(ZEBOpenAsset(kAsset, true, &log_).IsEmpty());
  EXPECT_EQ(Said(),
            "4 installed <kuid:100:201>\n3 commit_open_for_edit <kuid:100:200>\n"
            "3 commit_database_error <kuid:100:201>\n3 open_file_error <kuid:100:200>\n");
  EXPECT_EQ(State(kAsset) + State(kOther), "local local ");
}

TEST_F(OperationsTest, EditRefusesWhatAPackageCouldNotHold) {
  MakeCommitted(kAsset);
  for (const char* name : {"notes.doc", "~a.txt", "MESH.IM"}) {
    Write(LocalPath(kAsset) + "/" + name, "x");
    EXPECT_TRUE(ZEBOpenAsset(kAsset, true, &log_).IsEmpty()) << name;
    EXPECT_EQ(State(kAsset) + Said(), "local 3 copy_file_error <kuid:100:200>\n");
    std::filesystem::remove(Path(LocalPath(kAsset) + "/" + name));
  }
}

TEST_F(OperationsTest, CommitNamesFilesOfOldAssetsAndAsksTheValidator) {
  struct Judge : AssetValidator {
    bool Validate(const KUID& kuid, ResultsLog&) override { return kuid == kOther; }
  } judge;
  SetAssetValidator(&judge);
  MakeCommitted(kAsset, "2.4");
  MakeCommitted(kOther, "2.5");
  SetAssetValidator(nullptr);
  EXPECT_TRUE(Record(kAsset)->Has(AssetFlag::kHasErrors));
  EXPECT_FALSE(Record(kOther)->Has(AssetFlag::kHasErrors));
  const Nox::PString tag("asset-filename");
  EXPECT_EQ(ReadConfig(LocalLocation(*Record(kAsset))).GetString(tag), "source");
  EXPECT_FALSE(ReadConfig(LocalLocation(*Record(kOther))).HasTag(tag));
}

TEST_F(OperationsTest, DeleteTakesBackWhatTheUserAdded) {
  MakeCommitted(kAsset);
  ZEBOpenAsset(kAsset, true, nullptr);
  ZEBAssetInfo& record = *Record(kAsset);
  Write("trains/group/asset/config.txt", "kuid <kuid:100:200>\n");
  record.SetText(AssetText::kPackName, "trains");
  record.SetText(AssetText::kPackPath, "group/asset");
  record.Set(AssetFlag::kBuiltIn, true);
  record.Set(AssetState::kOnStation, true);
  EXPECT_TRUE(ZEBDeleteAsset(kAsset, true));
  EXPECT_EQ(State(kAsset) + Names("editing") + Names("local") + Names("trains/group"), "pack asset ");
  record.Set(AssetFlag::kBuiltIn, false);
  EXPECT_TRUE(ZEBDeleteAsset(kAsset, true));
  EXPECT_EQ(State(kAsset) + Names("trains/group"), "known");
  record.Set(AssetState::kOnStation, false);
  EXPECT_TRUE(ZEBDeleteAsset(kAsset, true));
  EXPECT_FALSE(ZEBDeleteAsset(kAsset, true));
}

// A commit that is killed leaves the folders as they are between two of its renames, and an index that knows
// nothing of it. Whatever the moment, the next run finds the asset whole.
TEST_F(OperationsTest, AssetSurvivesACommitThatIsKilled) {
  for (const int moment : {1, 2, 3, 4}) {
    MakeCommitted(kAsset);
    ZEBOpenAsset(kAsset, true, nullptr);
    const std::string edit = Path(EditPath(kAsset)), local = Path(LocalPath(kAsset)),
                      saved = Path("local/tempabcd12341");
    Stop();
    std::filesystem::rename(Path("assets.tdx"), Path("cache/assets.bku"));
    std::filesystem::rename(local, saved);
    if (moment >= 2) std::filesystem::rename(edit, local);
    if (moment >= 3) std::filesystem::copy(saved + "/config.chump", local + "/config.chump");
    if (moment >= 4) std::filesystem::remove(local + "/config.txt");
    Start();
    EXPECT_TRUE(ZEBAssetLock(false)) << "waits for the load";
    ASSERT_EQ(State(kAsset), moment == 1 ? "open local " : "local ") << moment;
    EXPECT_EQ(Tree(LocalPath(kAsset)).at("art/blue.tga"), kArt) << moment;
    EXPECT_TRUE(Commit(kAsset)) << moment << Said();
    ZEBDeleteAsset(kAsset, true);
    std::filesystem::remove_all(saved);
  }
}

}  // namespace
}  // namespace morvex
