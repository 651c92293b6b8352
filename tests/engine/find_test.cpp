#include "engine/find.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace Nox {
namespace {

// The names a pattern delivers, in their order, folders with a slash and links with an at-sign behind.
std::string Listed(const std::string& pattern) {
  File::Find find;
  if (!find.Open(pattern)) return "no folder";
  std::string names;
  while (const DirEntry* entry = find.Next()) {
    names += entry->name + (entry->isLink ? "@" : "") + (entry->IsDir() ? "/" : "") + " ";
  }
  return names;
}

TEST(Find, DeliversInFindOrder) {
  const ScratchFolder scratch;
  for (const char* file : {"b", "B", "a_", "aB", "Aa", "-x", "\xC4"})
    PutFile(scratch / file, "");
  std::filesystem::create_directory(scratch / "Zed");
  std::filesystem::create_directory_symlink("Zed", scratch / "link");
  std::filesystem::create_symlink("none", scratch / "c");
  EXPECT_EQ(Listed(scratch / "*"), "./ ../ -x a_ Aa aB B b c@ link@/ Zed/ \xC4 ");
  EXPECT_EQ(Listed(scratch / "*.*"), Listed(scratch / "*"));
  EXPECT_EQ(Listed(scratch / "A?"), "a_ Aa aB ");
  EXPECT_EQ(Listed(scratch / "zed/*"), "./ ../ ");
  EXPECT_EQ(Listed(scratch / "none/*"), "no folder");
  EXPECT_TRUE(IsEmptyFolder(scratch / "ZED"));
  EXPECT_FALSE(IsEmptyFolder(scratch.path()));
  EXPECT_FALSE(IsEmptyFolder(scratch / "b"));
}

TEST(Find, MatchesWildcards) {
  const std::tuple<std::string_view, std::string_view, bool> rows[] = {
      {"abc", "*", true},       {"abc", "A*C", true},       {"abc", "a?c", true},
      {"abc", "ab", false},     {"a.b.txt", "*.txt", true}, {"", "?", false},
      {"aXbXc", "a*b*c", true}, {"aXbX", "a*b*c", false},   {"aab", "*ab", true}};
  for (const auto& [name, pattern, matches] : rows) {
    EXPECT_EQ(MatchWildcards(name, pattern), matches) << name << " " << pattern;
  }
  // No pattern makes the matcher try all ways to split a name.
  const std::string stars(500, '*');
  EXPECT_FALSE(MatchWildcards(std::string(2000, 'a'), stars + "a*a*a*a*a*b"));
}

}  // namespace
}  // namespace Nox
