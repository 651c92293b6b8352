#include "engine/file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "engine/read_file.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace Nox {
namespace {

TEST(File, WritesSeeksAndReadsBack) {
  const ScratchFolder scratch;
  File file;
  ASSERT_TRUE(file.Open(scratch / "a", OpenMode::kCreate));
  EXPECT_EQ(file.Write("0123456789", 10), 10U);
  EXPECT_TRUE(file.Eof());
  EXPECT_TRUE(file.Seek(-3, SeekOrigin::kCurrent));
  EXPECT_FALSE(file.Seek(-8, SeekOrigin::kCurrent));
  EXPECT_FALSE(file.Seek(INT64_MAX, SeekOrigin::kCurrent));
  EXPECT_EQ(file.Tell(), 7U);
  char back[16] = {};
  EXPECT_EQ(file.Read(back, 16), 3U);
  EXPECT_STREQ(back, "789");
  EXPECT_TRUE(file.Seek(2, SeekOrigin::kEnd));
  EXPECT_EQ(file.Write("x", 1), 1U);
  EXPECT_EQ(file.Size(), 13U);
  EXPECT_TRUE(file.Truncate(4));
  EXPECT_TRUE(file.Sync());
  EXPECT_TRUE(file.Close());
  EXPECT_EQ(GetFile(scratch / "a"), "0123");
}

TEST(File, ModesDoWhatTheySay) {
  const ScratchFolder scratch;
  File file;
  EXPECT_FALSE(file.Open(scratch / "a", OpenMode::kUpdate));
  EXPECT_FALSE(file.Open(scratch / "a", OpenMode::kRead));
  PutFile(scratch / "Name.txt", "old");
  ASSERT_TRUE(file.Open(scratch / "NAME.TXT", OpenMode::kUpdate));
  EXPECT_EQ(file.Write("O", 1), 1U);
  ASSERT_TRUE(file.Open(scratch / "name.txt", OpenMode::kRead));
  EXPECT_EQ(file.Write("x", 1), 0U);
  file.Close();
  EXPECT_EQ(GetFile(scratch / "Name.txt"), "Old");
  // Making a file that is there in other letters empties that one.
  ASSERT_TRUE(file.Open(scratch / "name.TXT", OpenMode::kCreate));
  EXPECT_EQ(std::filesystem::file_size(scratch / "Name.txt"), 0U);
  EXPECT_FALSE(File().CreateNew(scratch / "Name.txt"));
  EXPECT_TRUE(File().CreateNew(scratch / "name.TXT"));
}

TEST(File, OpensRegularFilesOnly) {
  const ScratchFolder scratch;
  ASSERT_EQ(mkfifo((scratch / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink(scratch / "victim", scratch / "link");
  PutFile(scratch / "victim", "kept");
  File file;
  for (const OpenMode mode : {OpenMode::kRead, OpenMode::kUpdate, OpenMode::kCreate}) {
    EXPECT_FALSE(file.Open(scratch / "pipe", mode));
    EXPECT_FALSE(file.Open(scratch.path(), mode));
  }
  EXPECT_FALSE(file.Open(scratch / "link", OpenMode::kCreate));
  EXPECT_EQ(GetFile(scratch / "victim"), "kept");
  EXPECT_TRUE(file.Open(scratch / "link", OpenMode::kRead));
}

TEST(File, ReadsLinesThatFitTheBuffer) {
  const ScratchFolder scratch;
  PutFile(scratch / "lines", "one\r\ntwenty\n\nlast");
  File file;
  ASSERT_TRUE(file.Open(scratch / "lines", OpenMode::kRead));
  char line[6];
  std::string seen;
  while (file.ReadLine(line, sizeof line) > 0)
    seen += std::string(line) + "|";
  EXPECT_EQ(seen, "one\r\n|twent|y\n|\n|last|");
  EXPECT_TRUE(file.Eof());
  EXPECT_STREQ(line, "");
}

TEST(File, WholeFilesAreReadAndMapped) {
  const ScratchFolder scratch;
  const std::string content(100000, 'x');
  PutFile(scratch / "big", content);
  PutFile(scratch / "empty", "");
  EXPECT_EQ(ReadWholeFile(scratch / "BIG")->Text(), content);
  EXPECT_FALSE(ReadWholeFile(scratch / "big", 99999).has_value());
  EXPECT_TRUE(ReadWholeFile(scratch / "empty")->Empty());
  EXPECT_TRUE(MapFile(scratch / "empty")->Empty());
  EXPECT_FALSE(MapFile(scratch / "none").has_value());
  const OwnedBytes part = MapFile(scratch / "big")->Slice(99990);
  EXPECT_EQ(part.Text(), "xxxxxxxxxx");
}

}  // namespace
}  // namespace Nox
