#include "engine/replace_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace Nox {
namespace {

std::size_t CountFiles(const std::string& folder) {
  const std::filesystem::directory_iterator entries(folder);
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

TEST(ReplaceFile, TheOldFileStaysUntilCommit) {
  const ScratchFolder scratch;
  PutFile(scratch / "Kuid.txt", "old");
  ReplaceFile file;
  ASSERT_TRUE(file.Open(scratch / "kuid.TXT"));
  EXPECT_TRUE(file.Write("....new"));
  const std::uint8_t head[] = {'s', 'i', 'z', 'e'};
  EXPECT_TRUE(file.WriteAt(0, head));
  EXPECT_EQ(file.Written(), 7U);
  EXPECT_EQ(GetFile(scratch / "Kuid.txt"), "old");
  EXPECT_EQ(CountFiles(scratch.path()), 2U);
  EXPECT_TRUE(file.Commit(true));
  EXPECT_EQ(GetFile(scratch / "Kuid.txt"), "sizenew");
  EXPECT_EQ(CountFiles(scratch.path()), 1U);
  EXPECT_FALSE(file.Commit());
}

TEST(ReplaceFile, LeavesNothingWhenItIsGivenUpOrFails) {
  const ScratchFolder scratch;
  std::filesystem::create_directory(scratch / "folder");
  {
    ReplaceFile file;
    ASSERT_TRUE(file.Open(scratch / "a"));
    EXPECT_TRUE(file.Write("x"));
  }
  EXPECT_FALSE(WriteFileReplacing(scratch / "folder", "x"));
  EXPECT_FALSE(WriteFileReplacing(scratch / "none/a", "x"));
  EXPECT_FALSE(WriteFileReplacing("", "x"));
  EXPECT_EQ(CountFiles(scratch.path()), 1U);
}

// A limit on the size of files stands for a full disk.
TEST(ReplaceFile, AFullDiskKeepsTheOldFile) {
  const ScratchFolder scratch;
  PutFile(scratch / "a", "old");
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{1000, old.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const bool written = WriteFileReplacing(scratch / "a", std::string(2000, 'x'));
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(written);
  EXPECT_EQ(GetFile(scratch / "a"), "old");
  EXPECT_EQ(CountFiles(scratch.path()), 1U);
}

}  // namespace
}  // namespace Nox
