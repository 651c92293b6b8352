#include "packages/folder_packing.h"

#include "packages/folder_copy.h"
#include "tests/packages/package_fixture.h"

namespace morvex {
namespace {

class FolderPackingTest : public PackageTest {
 protected:
  bool Add(std::string_view compression = kLzssCompression, unsigned flags = 0) {
    log_ = ResultsLog();
    files_.Clear();
    return AddFolder(files_, Nox::PString(), Source(), compression, log_, flags);
  }
  bool Check() {
    log_ = ResultsLog();
    return CheckFolder(Nox::PString(), Source(), log_);
  }
  bool Copy() {
    log_ = ResultsLog();
    return CopyAssetFiles(Source(), Target(), log_);
  }
  void Link(const std::string& to, const std::string& name) {
    std::filesystem::create_symlink(to, Source() + "/" + name);
  }

  TagContainer files_;
  ResultsLog log_;
};

TEST_F(FolderPackingTest, LowersNamesAndPassesOverIgnoredFiles) {
  AddSource("config.txt", "kuid <kuid:1:2>");
  AddSource("Mesh.IM", "123456");
  AddSource("Thumbs.db");
  AddSource("Art/Deep/B.tga", "");
  ASSERT_TRUE(Add());
  EXPECT_EQ(Show(files_), "art{deep{b.tga:5}} config.txt:20 mesh.im:11");
  EXPECT_EQ(RawBytes(files_.GetRaw(Nox::PString("mesh.im"))), std::string_view("\6\0\0\0\0"
                                                                               "123456",
                                                                               11));
  ASSERT_TRUE(Add(""));
  EXPECT_EQ(Show(files_), "art{deep{b.tga:0}} config.txt:15 mesh.im:6");
  EXPECT_TRUE(Check());
}

TEST_F(FolderPackingTest, ReportsAllFaultsInWalkOrder) {
  AddSource("Good.txt");
  AddSource("notes.doc");
  AddSource("sub/ bad.txt");
  AddSource("sub/x.DOC");
  AddSource("trailing.IMW");
  EXPECT_FALSE(Add());
  EXPECT_EQ(Words(log_),
            "2 file_bad_ext source/notes.doc\n3 file_bad_name  bad.txt\n2 file_bad_ext source/sub/x.DOC\n"
            "2 file_bad_ext source/trailing.IMW\n");
  EXPECT_EQ(Show(files_), "good.txt:9 sub{}");

  EXPECT_FALSE(Add("", kPassOverOtherFiles));
  EXPECT_EQ(Words(log_), "3 file_bad_name  bad.txt\n");

  EXPECT_FALSE(Check());
  EXPECT_EQ(Words(log_),
            "3 file_bad_ext notes.doc\n3 file_bad_name  bad.txt\n3 file_bad_ext x.DOC\n3 file_bad_ext "
            "trailing.IMW\n");

  EXPECT_FALSE(Add("lzss"));
  EXPECT_NE(Words(log_).find("3 unknown_compression source/Good.txt lzss\n"), std::string::npos);
}

TEST_F(FolderPackingTest, ReportsAFolderThatIsNotThere) {
  EXPECT_FALSE(Add());
  EXPECT_EQ(Words(log_), "3 folder_read_err source\n");
  EXPECT_FALSE(Check());
  EXPECT_EQ(Words(log_), "3 folder_err source\n");
}

TEST_F(FolderPackingTest, LinksOutOfTheAssetAreFilesThatCannotBeRead) {
  AddSource("a.txt");
  AddSource("art/b.txt");
  PutFile(scratch_ / "private/secret.txt", "secret");
  PutFile(scratch_ / "source2/c.txt", "a folder whose name begins like the asset's");
  Link("art/b.txt", "inside.txt");
  Link("art", "insideart");
  Link("../private/secret.txt", "out.txt");
  Link("../private", "outart");
  Link("../source2", "outart2");
  Link("nowhere.txt", "dangling.txt");
  EXPECT_FALSE(Add(""));
  EXPECT_EQ(Words(log_),
            "3 file_read_err source/dangling.txt\n3 file_read_err source/out.txt\n"
            "3 file_read_err source/outart\n3 file_read_err source/outart2\n");
  EXPECT_EQ(Show(files_), "a.txt:4 art{b.txt:4} inside.txt:4 insideart{b.txt:4}");
  EXPECT_FALSE(Copy());
  EXPECT_EQ(Tree(Target()), "a.txt art/ art/b.txt inside.txt insideart/ insideart/b.txt");
}

TEST_F(FolderPackingTest, LinksThatRunInCirclesEnd) {
  AddSource("a/x.txt");
  AddSource("b/y.txt");
  Link(".", "self");
  Link("../b", "a/tob");
  Link("../a", "b/toa");
  EXPECT_FALSE(Add(""));
  EXPECT_EQ(Words(log_),
            "3 folder_read_err source/a/tob/toa\n3 folder_read_err source/b/toa/tob\n3 folder_read_err "
            "source/self\n");

  // Each level leads twice into the next: without a limit there would be 2^40 ways down.
  for (int level = 0; level < 40; ++level) {
    const std::string name = "m" + std::to_string(level);
    AddSource(name + "/z.txt", "");
    Link("../m" + std::to_string(level + 1), name + "/p");
    Link("../m" + std::to_string(level + 1), name + "/q");
  }
  AddSource("m40/z.txt", "");
  EXPECT_FALSE(Check());
}

TEST_F(FolderPackingTest, CopyTakesWhatAPackageWouldAndLeavesTheConfiguration) {
  AddSource("Config.txt");
  AddSource("config.chump");
  AddSource("Mesh.IM", "mesh");
  AddSource("Thumbs.db");
  AddSource("Sub/Config.txt", "a file like any other");
  ASSERT_TRUE(Copy());
  EXPECT_EQ(Tree(Target()), "mesh.im sub/ sub/config.txt");
  EXPECT_EQ(GetFile(Target() + "/mesh.im"), "mesh");
}

TEST_F(FolderPackingTest, CopyRefusesNamesThatDifferByCaseAlone) {
  AddSource("a.TXT", "first");
  AddSource("a.txt", "second");
  AddSource("Art/x.im");
  AddSource("art/y.im");
  AddSource("art/.bad/z.im");
  EXPECT_FALSE(Copy());
  EXPECT_EQ(Words(log_), "3 file_bad_name a.txt\n3 file_bad_name art\n3 file_bad_name .bad\n");
  EXPECT_EQ(Tree(Target()), "a.txt art/ art/x.im");
  EXPECT_EQ(GetFile(Target() + "/a.txt"), "first");

  ASSERT_FALSE(Add(""));
  EXPECT_EQ(RawBytes(files_.GetRaw(Nox::PString("a.txt"))), "first");
}

}  // namespace
}  // namespace morvex
