#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "engine/file.h"
#include "engine/unique_handle.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace Nox {
namespace {

namespace fs = std::filesystem;

TEST(FileSystem, MakesFoldersWithParents) {
  const ScratchFolder scratch;
  EXPECT_TRUE(File::Md(scratch / "Top"));
  EXPECT_TRUE(File::Md(scratch / "top\\new\\deep/"));
  EXPECT_TRUE(fs::is_directory(scratch / "Top/new/deep"));
  EXPECT_FALSE(fs::exists(scratch / "top"));
  EXPECT_TRUE(File::Md(scratch / "TOP/NEW"));
  PutFile(scratch / "file", "");
  EXPECT_FALSE(File::Md(scratch / "file"));
  EXPECT_FALSE(File::Md(scratch / "file/below"));
  EXPECT_FALSE(File::Md(scratch / std::string(260, 'a')));
}

TEST(FileSystem, RenamesOverFilesButNotOverFolders) {
  const ScratchFolder scratch;
  for (const char* folder : {"d1", "d2"})
    fs::create_directory(scratch / folder);
  PutFile(scratch / "new", "new");
  PutFile(scratch / "Old", "old");
  EXPECT_FALSE(File::Rename(scratch / "new", scratch / "d1"));
  EXPECT_FALSE(File::Rename(scratch / "d1", scratch / "d2"));
  EXPECT_FALSE(File::Rename(scratch / "d1", scratch / "Old"));
  EXPECT_FALSE(File::Rename(scratch / "none", scratch / "x"));
  EXPECT_TRUE(File::Rename(scratch / "NEW", scratch / "old"));
  EXPECT_EQ(GetFile(scratch / "Old"), "new");
  EXPECT_TRUE(File::Rename(scratch / "d1/", scratch / "D2\\Moved/"));
  EXPECT_TRUE(fs::is_directory(scratch / "d2/Moved"));
}

TEST(FileSystem, RenameChangesLetters) {
  const ScratchFolder scratch;
  PutFile(scratch / "name", "text");
  EXPECT_TRUE(File::Rename(scratch / "name", scratch / "NAME"));
  EXPECT_EQ(fs::directory_iterator(scratch.path())->path().filename(), "NAME");
  EXPECT_TRUE(File::Rename(scratch / "NAME", scratch / "NAME"));
  EXPECT_EQ(GetFile(scratch / "NAME"), "text");
}

TEST(FileSystem, AnswersAboutNames) {
  const ScratchFolder scratch;
  fs::create_directory(scratch / "Folder");
  PutFile(scratch / "Folder/file", "12345");
  fs::create_symlink("Folder", scratch / "link");
  EXPECT_TRUE(File::Exists(scratch / "folder/FILE"));
  EXPECT_FALSE(File::Exists(scratch / "folder/none"));
  EXPECT_TRUE(File::IsFolder(scratch / "LINK"));
  EXPECT_FALSE(File::IsFolder(scratch / "folder/file"));
  EXPECT_EQ(File::SizeOf(scratch / "link/file"), 5U);
  EXPECT_FALSE(File::SizeOf(scratch / "folder").has_value());
  EXPECT_FALSE(File::Rd(scratch / "folder"));
  EXPECT_FALSE(File::Unlink(scratch / "folder"));
  EXPECT_TRUE(File::Unlink(scratch / "link"));
  EXPECT_TRUE(File::Unlink(scratch / "FOLDER/FILE"));
  EXPECT_TRUE(File::SyncFolder(scratch / "folder"));
  EXPECT_TRUE(File::Rd(scratch / "folder"));
}

TEST(FileSystem, CopiesWithoutLosingAnything) {
  const ScratchFolder scratch;
  const std::string content(300000, 'c');
  PutFile(scratch / "From", content);
  PutFile(scratch / "empty", "");
  EXPECT_TRUE(File::CopyFile(scratch / "from", scratch / "to"));
  EXPECT_EQ(GetFile(scratch / "to"), content);
  EXPECT_TRUE(File::CopyFile(scratch / "empty", scratch / "TO"));
  EXPECT_EQ(fs::file_size(scratch / "to"), 0U);
  EXPECT_TRUE(File::CopyFile(scratch / "from", scratch / "FROM"));  // the same file
  EXPECT_EQ(GetFile(scratch / "From"), content);
  EXPECT_TRUE(File::CopyToNew(scratch / "from", scratch / "FROM"));  // exactly this name is new
  EXPECT_FALSE(File::CopyToNew(scratch / "empty", scratch / "FROM"));
  EXPECT_EQ(GetFile(scratch / "FROM"), content);
  EXPECT_FALSE(File::CopyFile(scratch / "none", scratch / "new"));
  EXPECT_FALSE(File::Exists(scratch / "new"));
}

TEST(Prune, RemovesATreeAndLeavesWhatItsLinksPointTo) {
  const ScratchFolder scratch;
  fs::create_directories(scratch / "Tree/a/b");
  fs::create_directories(scratch / "Tree/c");
  fs::create_directories(scratch / "kept");
  PutFile(scratch / "Tree/a/b/file", "x");
  PutFile(scratch / "kept/file", "x");
  fs::create_directory_symlink(scratch / "kept", scratch / "Tree/a/link");
  fs::create_symlink("nowhere", scratch / "Tree/broken");
  fs::create_directory_symlink(scratch / "kept", scratch / "outer");
  EXPECT_TRUE(File::Prune(scratch / "tree/"));
  EXPECT_FALSE(fs::exists(scratch / "Tree"));
  EXPECT_TRUE(File::Prune(scratch / "outer"));
  EXPECT_FALSE(fs::exists(fs::symlink_status(scratch / "outer")));
  EXPECT_TRUE(fs::exists(scratch / "kept/file"));
}

TEST(Prune, RefusesWhatIsNoFolderOfItsOwn) {
  const ScratchFolder scratch;
  fs::create_directories(scratch / "a/b");
  PutFile(scratch / "file", "x");
  for (const char* path : {"file", "none", "a/.", "a/b/.."})
    EXPECT_FALSE(File::Prune(scratch / path + "/")) << path;
  EXPECT_TRUE(fs::exists(scratch / "file"));
  EXPECT_TRUE(fs::exists(scratch / "a/b"));
}

// Far deeper than a path can name and than a stack of frames would bear.
TEST(Prune, DepthDoesNotMatter) {
  const ScratchFolder scratch;
  fs::create_directory(scratch / "deep");
  UniqueHandle here(open((scratch / "deep").c_str(), O_RDONLY | O_DIRECTORY));
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(mkdirat(here.Get(), "level", 0777), 0);
    here = UniqueHandle(openat(here.Get(), "level", O_RDONLY | O_DIRECTORY));
  }
  EXPECT_TRUE(File::Prune(scratch / "deep"));
  EXPECT_FALSE(fs::exists(scratch / "deep"));
}

}  // namespace
}  // namespace Nox
