#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "engine/file.h"
#include "engine/unique_handle.h"
#include "tests/engine/test_files.h"
#include "tests/scratch_folder.h"

namespace Nox {
namespace {

namespace fs = std::filesystem;

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
