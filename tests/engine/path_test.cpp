#include "engine/path.h"

#include <gtest/gtest.h>

#include "engine/host_path.h"

namespace Nox {
namespace {

struct Pair {
  std::string_view path, expected;
};

TEST(Path, Normalizes) {
  for (const Pair& row : {Pair{"a//b\\c/", "a/b/c"},
                          {"/a/./b/../c", "/a/c"},
                          {"../../a", "../../a"},
                          {"a/../..", ".."},
                          {"/../a", "/a"},
                          {"", "."},
                          {"\\a", "/a"},
                          {"\\\\host\\a", "\\\\host/a"},
                          {"...", "..."}}) {
    EXPECT_EQ(Path::Normalize(row.path), row.expected) << row.path;
  }
}

TEST(Path, TakesNamesApart) {
  struct Row {
    std::string_view path, folder, name, ext, above;
  };
  for (const Row& row : {Row{"/a/b.c.txt", "/a", "b.c.txt", "txt", "/a"},
                         {"/a/b/", "/a/b", "", "", "/a"},
                         {"name", "", "name", "", ""},
                         {"/name", "/", "name", "", "/"},
                         {"a\\b.", "a", "b.", "", "a"},
                         {"/", "/", "", "", "/"},
                         {"", "", "", "", ""}}) {
    EXPECT_EQ(Path::DelName(row.path, false), row.folder) << row.path;
    EXPECT_EQ(Path::GetFileName(row.path), row.name) << row.path;
    EXPECT_EQ(Path::GetExt(row.path), row.ext) << row.path;
    EXPECT_EQ(Path::PrevDir(row.path), row.above) << row.path;
  }
  EXPECT_EQ(Path::DelName("/a/b", true), "/a/");
}

TEST(Path, JoinsAndChangesExtensions) {
  EXPECT_EQ(Path::AddPath("a/", "/b"), "a/b");
  EXPECT_EQ(Path::AddPath("", "/b"), "/b");
  EXPECT_EQ(Path::AddPath("/", "b"), "/b");
  EXPECT_EQ(Path::SetExt("a.b/c.txt", "chump"), "a.b/c.chump");
  EXPECT_EQ(Path::SetExt("a.b/c", "txt"), "a.b/c.txt");
  EXPECT_EQ(Path::SetExt("c.txt", ""), "c");
  EXPECT_TRUE(Path::IsExt("x/Body.Texture.TXT", "texture.txt"));
  EXPECT_FALSE(Path::IsExt("cdp", "cdp"));
  EXPECT_FALSE(Path::IsExt("a.cdp/b", "cdp"));
}

TEST(Path, RelativeToABase) {
  EXPECT_EQ(Path::MakeRelativeTo("/game/editing/x/", "/game/"), "editing/x/");
  EXPECT_EQ(Path::MakeRelativeTo("/root2/x", "/root"), "/root2/x");
  EXPECT_EQ(Path::MakeRelativeTo("/root", "/root"), "");
  EXPECT_EQ(Path::MakeRelativeTo("root/x", "/root"), "root/x");
}

TEST(Path, BelowIsDecidedByComponents) {
  struct Row {
    std::string_view root, path;
    bool below;
  };
  for (const Row& row : {Row{"/r", "/r/a", true},
                         {"/r", "/r", false},
                         {"/r", "/r/.", false},
                         {"/r", "/ra", false},
                         {"/r", "/r/a/../../x", false},
                         {"/r", "/x/../r/a", true},
                         {"/", "/a", true},
                         {"/r", "r/a", false},
                         {".", "a", true},
                         {".", "../a", false},
                         {"/r", "c:/r/a", false},
                         {"/r", "\\r\\a", false},
                         {"/r", "", false}}) {
    EXPECT_EQ(Path::IsBelow(row.root, row.path), row.below) << row.root << " " << row.path;
  }
}

TEST(Path, HostPathsAreNeverCut) {
  EXPECT_TRUE(HostPath(std::string(260, 'a')).Valid());
  EXPECT_FALSE(HostPath(std::string(261, 'a')).Valid());
  EXPECT_FALSE(HostPath("").Valid());
  EXPECT_FALSE(HostPath(std::string_view("a\0b", 3)).Valid());
  EXPECT_FALSE(HostPath("c:\\windows").Valid());
  EXPECT_STREQ(HostPath("a\\b/c").c_str(), "a/b/c");
}

}  // namespace
}  // namespace Nox
