#include "tagdata/disk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tagdata/temporary_path.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

namespace fs = std::filesystem;

// An installation in <folder>/install with something precious beside it.
class DiskTest : public testing::Test {
 protected:
  DiskTest() {
    for (const char* name : {"/install/local/asset", "/install/editing", "/installed", "/precious"})
      fs::create_directories(folder_.path() + name);
    for (const char* name : {"/install/local/asset/config.txt", "/installed/file", "/precious/file"})
      std::ofstream(folder_.path() + name) << "text";
    SetRootPath(Root());
  }
  ~DiskTest() override { SetRootPath(""); }

  std::string Root() const { return folder_ / "install"; }

  const ScratchFolder folder_;
  const Nox::PString none_;
};

TEST_F(DiskTest, DeletesBelowTheRootOnly) {
  fs::create_directory_symlink(folder_ / "precious", Root() + "/local/link");
  const std::string refused[] = {
      Root(),
      Root() + "/",
      Root() + "/local/../../precious",
      Root() + "/../precious/file",
      Root() + "/../installed",
      Root() + "/local/link/file",
      Root() + "/LOCAL/Link/file",
      Root() + "/local/link/../precious",
      folder_ / "precious/file",
      folder_ / "installed/file",
      "local/asset",
      "c:\\precious",
      "",
  };
  for (const std::string& path : refused)
    EXPECT_FALSE(DiskDelete(none_, path)) << path;
  for (const char* path : {"../precious", "asset/../../../precious/file", "link/file", "missing"})
    EXPECT_FALSE(DiskDelete(Nox::PString("local"), path)) << path;
  EXPECT_TRUE(fs::exists(folder_ / "precious/file"));
  EXPECT_TRUE(fs::exists(folder_ / "installed/file"));
  EXPECT_TRUE(fs::exists(Root() + "/local/asset/config.txt"));

  EXPECT_TRUE(DiskDelete(none_, Root() + "/local/link")) << "the link itself";
  EXPECT_TRUE(fs::exists(folder_ / "precious/file"));
  EXPECT_TRUE(DiskDelete(Nox::PString("local"), "asset/config.txt"));
  EXPECT_TRUE(DiskDelete(none_, Root() + "/local/asset"));
  EXPECT_TRUE(fs::is_empty(Root() + "/local"));
}

TEST_F(DiskTest, BaseMeansTheInstallation) {
  const Nox::PString local("local");
  EXPECT_TRUE(DiskMakeDir(local, "new\\inner"));
  EXPECT_TRUE(fs::is_directory(Root() + "/local/new/inner"));
  EXPECT_TRUE(DiskCopy(local, "asset/config.txt", local, "new/copy.txt"));
  EXPECT_TRUE(DiskRename(local, "new/copy.txt", "new/moved.txt"));
  EXPECT_EQ(fs::file_size(Root() + "/local/new/moved.txt"), 4u);
  EXPECT_FALSE(DiskCopy(local, "missing", local, "new/other.txt"));
  EXPECT_FALSE(DiskMakeDir(none_, "relative"));
  EXPECT_FALSE(DiskRename(none_, "relative", Root() + "/x"));
  EXPECT_TRUE(DiskExists(none_, "relative")) << "nobody may take such a name";
}

TEST_F(DiskTest, TemporaryPathsAreFree) {
  const std::string editing = Root() + "/editing";
  std::string path;
  EXPECT_TRUE(CreateTemporaryFilePath(none_, editing, "edit ", "", path, "My: engine  "));
  EXPECT_EQ(path, editing + "/My_ engine");
  fs::create_directory(path);
  EXPECT_TRUE(CreateTemporaryFilePath(none_, editing + "/", "edit ", "x", path));
  EXPECT_EQ(path.substr(path.size() - 2), ".x");
  EXPECT_FALSE(DiskExists(none_, path));
  for (const std::string& name : {std::string("My_ engine"), std::string("  "), std::string(255, 'n')}) {
    EXPECT_TRUE(CreateTemporaryFilePath(none_, editing, "edit ", "", path, name));
    EXPECT_EQ(path.rfind(editing + "/edit ", 0), 0u) << path;
  }
  EXPECT_FALSE(CreateTemporaryFilePath(none_, "relative", "edit ", "", path));
}

}  // namespace
}  // namespace morvex
