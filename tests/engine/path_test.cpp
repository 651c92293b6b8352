#include "engine/path.h"

#include <gtest/gtest.h>

#include <tuple>

#include "engine/host_path.h"

namespace Nox {
namespace {

TEST(Path, Normalizes) {
  const char* const rows[][2] = {{"a//b\\c/", "a/b/c"},  {"/a/./b/../c", "/a/c"},
                                 {"../../a", "../../a"}, {"a/../..", ".."},
                                 {"/../a", "/a"},        {"", "."},
                                 {"\\a", "/a"},          {"\\\\host\\a", "\\\\host/a"},
                                 {"...", "..."}};
  for (const auto& [path, expected] : rows)
    EXPECT_EQ(Path::Normalize(path), expected) << path;
}

TEST(Path, TakesNamesApart) {
  const std::string_view rows[][5] = {{"/a/b.c.txt", "/a", "b.c.txt", "txt", "/a"},
                                      {"/a/b/", "/a/b", "", "", "/a"},
                                      {"name", "", "name", "", ""},
                                      {"/name", "/", "name", "", "/"},
                                      {"a\\b.", "a", "b.", "", "a"},
                                      {"/", "/", "", "", "/"},
                                      {"", "", "", "", ""}};
  for (const auto& [path, folder, name, ext, above] : rows) {
    EXPECT_EQ(Path::DelName(path, false), folder) << path;
    EXPECT_EQ(Path::GetFileName(path), name) << path;
    EXPECT_EQ(Path::GetExt(path), ext) << path;
    EXPECT_EQ(Path::PrevDir(path), above) << path;
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
  EXPECT_EQ(Path::MakeRelativeTo("/base2/x", "/base"), "/base2/x");
  EXPECT_EQ(Path::MakeRelativeTo("/base", "/base"), "");
  EXPECT_EQ(Path::MakeRelativeTo("base/x", "/base"), "base/x");
}

TEST(Path, BelowIsDecidedByComponents) {
  const std::tuple<std::string_view, std::string_view, bool> rows[] = {
      {"/r", "/r/a", true}, {"/r", "/r", false},           {"/r", "/r/.", false},
      {"/r", "/ra", false}, {"/r", "/r/a/../../x", false}, {"/r", "/x/../r/a", true},
      {"/", "/a", true},    {"/r", "r/a", false},          {".", "a", true},
      {".", "../a", false}, {"/r", "c:/r/a", false},       {"/r", "\\r\\a", false},
      {"/r", "", false}};
  for (const auto& [root, path, below] : rows) {
    EXPECT_EQ(Path::IsBelow(root, path), below) << root << " " << path;
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
