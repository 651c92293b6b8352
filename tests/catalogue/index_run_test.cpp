// Whole runs: what lies on the disk after a run, and what the next run makes of what it finds.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <filesystem>

#include "database/catalogue/asset_status.h"
#include "database/catalogue/index_reader.h"
#include "tests/catalogue/index_bytes.h"
#include "tests/catalogue/installation.h"

namespace morvex::test {
namespace {

class IndexRunTest : public ::testing::Test {
 protected:
  // An installation with one asset, whose index says more than its folder does: a rating.
  void SetUp() override {
    place_.AddAsset("local/house", "<kuid:1:1>", "House");
    place_.Start();
    {
      const ZEBAssetLock lock(true);
      Record("<kuid:1:1>").SetRating(4);
      ZEBMarkChanged(kContentChanged);
    }
    ASSERT_TRUE(place_.Stop());
  }

  // As a run that is killed behind its load leaves things.
  void LeaveAsIfKilled() const { place_.Rename("assets.tdx", "cache/assets.bku"); }

  Installation place_;
};

TEST_F(IndexRunTest, ARunMovesTheIndexAsideAndWritesItAnew) {
  const std::string index = place_.Read("assets.tdx");
  place_.Start();
  EXPECT_FALSE(place_.Exists("assets.tdx"));
  EXPECT_EQ(place_.Read("cache/assets.bku"), index);
  EXPECT_EQ(Record("<kuid:1:1>").Rating(), 4);
  EXPECT_TRUE(place_.Stop());
  EXPECT_TRUE(place_.Exists("assets.tdx"));
  EXPECT_EQ(place_.Read("cache/assets.bku"), index);
  EXPECT_FALSE(place_.Exists("cache/assets.tdx"));
}

TEST_F(IndexRunTest, AKilledRunIsRecoveredFromTheBackupAndTheFolders) {
  place_.AddAsset("local/shed", "<kuid:1:2>", "Shed");
  place_.AddAsset("editing/barn", "<kuid:1:3>", "Barn");
  place_.Remove("local/house");
  LeaveAsIfKilled();
  place_.Start();
  EXPECT_EQ(Copies("<kuid:1:1>"), "elp");
  EXPECT_EQ(Copies("<kuid:1:2>"), "eLp");
  EXPECT_EQ(Copies("<kuid:1:3>"), "Elp");
  EXPECT_EQ(Record("<kuid:1:1>").Rating(), 4);
  EXPECT_TRUE(place_.Exists("assets.tdx")) << "written at once";
}

TEST_F(IndexRunTest, AWholeIndexThatDidNotGetItsNameIsTheNewest) {
  place_.Rename("assets.tdx", "cache/assets.tdx");
  place_.Write("cache/assets.bku", "something older");
  place_.Start();
  EXPECT_EQ(Record("<kuid:1:1>").Rating(), 4);
}

TEST_F(IndexRunTest, AnIndexThatWasCutShortGivesWayToTheBackup) {
  const std::string index = place_.Read("assets.tdx");
  for (const size_t length : {size_t{0}, size_t{8}, index.size() / 2, index.size() - 1}) {
    place_.Write("cache/assets.bku", index);
    place_.Write("cache/assets.tdx", index.substr(0, length));
    place_.Write("assets.tdx", index.substr(0, length));
    place_.Start();
    EXPECT_EQ(Record("<kuid:1:1>").Rating(), 4) << length;
    EXPECT_EQ(place_.Read("cache/assets.bku"), index) << "stays until there is a newer one";
    place_.Stop();
  }
}

TEST_F(IndexRunTest, WithoutAnyIndexTheFoldersAreRead) {
  place_.Remove("assets.tdx");
  place_.Remove("cache");
  place_.Start();
  EXPECT_EQ(Copies("<kuid:1:1>"), "eLp");
  EXPECT_EQ(Record("<kuid:1:1>").Rating(), -1);
  EXPECT_FALSE(place_.Exists("assets.tdx"));
  EXPECT_TRUE(place_.Stop());
  EXPECT_TRUE(place_.Exists("assets.tdx"));
}

TEST_F(IndexRunTest, AFailedRenameKeepsTheWrittenIndex) {
  place_.Start();
  {
    const ZEBAssetLock lock(true);
    Record("<kuid:1:1>").SetRating(5);
  }
  std::filesystem::create_directories(place_.Path("assets.tdx/in-the-way"));
  testing::internal::CaptureStdout();
  EXPECT_FALSE(place_.Stop());
  const std::string index = place_.Path("assets.tdx");
  const std::string written = place_.Path("cache/assets.tdx");
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "ZEBThread_WriteDatabaseLocal> Unlink(\"" + index + "\") failed\n" +
                "ZEBThread_WriteDatabaseLocal> Rename(\"" + written + "\", \"" + index + "\") failed\n");
  EXPECT_TRUE(place_.Exists("cache/assets.tdx"));
  place_.Remove("assets.tdx");
  place_.Start();
  EXPECT_EQ(Record("<kuid:1:1>").Rating(), 5);
}

TEST_F(IndexRunTest, AnIndexThatCantBeWrittenLeavesTheBackup) {
  place_.Start();
  std::filesystem::create_directories(place_.Path("cache/assets.tdx/in-the-way"));
  EXPECT_FALSE(place_.Stop());
  place_.Remove("cache/assets.tdx");
  EXPECT_FALSE(place_.Exists("assets.tdx"));
  place_.Start();
  EXPECT_EQ(Record("<kuid:1:1>").Rating(), 4);
}

// A disk that is full in the middle of the write.
TEST_F(IndexRunTest, AnIndexThatDoesNotFitLeavesTheBackup) {
  place_.Start();
  {
    const ZEBAssetLock lock(true);
    Record("<kuid:1:1>").SetText(AssetText::kDescription, std::string(60000, 'd'));
  }
  rlimit limit;
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small = {30000, limit.rlim_max};
  signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const bool written = place_.Stop();
  setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_FALSE(written);
  EXPECT_FALSE(place_.Exists("assets.tdx"));
  EXPECT_FALSE(place_.Exists("cache/assets.tdx")) << "gives its room back";
  place_.Start();
  EXPECT_EQ(Record("<kuid:1:1>").Rating(), 4);
}

// Killed between the renames that replace a folder: `local/house` waits as "temp...", and the new content has got
// its name, or another temporary one, or isn't there.
TEST_F(IndexRunTest, ATemporaryFolderIsPutBackWhereItIsTheOnlyCopy) {
  place_.Rename("local/house", "local/tempab12cd342");
  LeaveAsIfKilled();
  place_.Start();
  EXPECT_EQ(place_.Names("local"), "house ");
  EXPECT_EQ(Record("<kuid:1:1>").LocalPath(), "local/house");
}

TEST_F(IndexRunTest, ATemporaryFolderNeverWinsOverAProperOne) {
  place_.Rename("local/house", "local/tempab12cd342");
  place_.AddAsset("local/zz", "<kuid:1:1>", "New house");
  for (const bool indexLost : {false, true}) {
    if (indexLost) {
      place_.Stop();
      place_.Remove("assets.tdx");
      place_.Remove("cache");
    } else {
      LeaveAsIfKilled();
    }
    place_.Remove("local/house");
    place_.Start();
    EXPECT_EQ(Record("<kuid:1:1>").Username(), indexLost ? "New house" : "House");
    EXPECT_TRUE(place_.Exists("local/zz"));
    if (!indexLost) {
      place_.Stop();
      place_.Rename("local/house", "local/tempab12cd342");
    }
  }
}

TEST_F(IndexRunTest, OfTwoTemporaryFoldersTheNewerIsTakenAndNamedProperly) {
  place_.Rename("local/house", "local/tempzzzzzzzz2");
  place_.AddAsset("local/tempaaaaaaaa1", "<kuid:1:1>", "Newer");
  std::filesystem::last_write_time(place_.Path("local/tempaaaaaaaa1/config.txt"),
                                   std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
  place_.Remove("assets.tdx");
  place_.Remove("cache");
  place_.Start();
  EXPECT_EQ(Record("<kuid:1:1>").Username(), "Newer");
  EXPECT_TRUE(Record("<kuid:1:1>").LocalPath().starts_with("local/content "));
  EXPECT_TRUE(place_.Exists("local/tempzzzzzzzz2")) << "what isn't taken stays";
}

TEST_F(IndexRunTest, EmptyEditFoldersGo) {
  std::filesystem::create_directories(place_.Path("editing/empty"));
  place_.Write("editing/full/note.txt", "x");
  place_.Start();
  EXPECT_EQ(place_.Names("editing"), "full ");
}

TEST_F(IndexRunTest, NotesGoWithTheirAsset) {
  TagContainer notes;
  for (const int author : {1, 2}) {
    TagContainer ofAuthor;
    TagContainer note;
    note.SetString(Nox::PString("text"), "old");
    ofAuthor.SetContainer(KUID(author, 1, 0).ToTagString(), note);
    notes.SetContainer(Nox::PString(std::to_string(author)), ofAuthor);
  }
  ASSERT_TRUE(notes.Save(Nox::PString(), place_.Path("notes.chump")));
  place_.Write("assets.tdx",
               IndexOf(IndexBytes().Header(0), {.notes = IndexBytes().Raw(place_.Read("notes.chump"))}));
  place_.Start();
  {
    const ZEBAssetLock lock(true);
    ZEBForgetAssetNotes(KUID(1, 1, 0));
  }
  place_.Restart();
  const TagContainer& left = ZEBAssetCache::Instance().notes.Container();
  ASSERT_EQ(left.GetCount(), 1U);
  EXPECT_EQ(left.GetName(0), "2");
}

}  // namespace
}  // namespace morvex::test
