#include <gtest/gtest.h>

#include <filesystem>

#include "engine/file.h"
#include "tests/engine/test_files.h"
#include "tests/scratch_folder.h"

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

}  // namespace
}  // namespace Nox
