#include "engine/name_lookup.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace Nox {
namespace {

class NameLookup : public testing::Test {
 protected:
  NameLookup() {
    std::filesystem::create_directories(scratch / "Settings/Inner");
    std::filesystem::create_directories(scratch / "two");
    std::filesystem::create_directories(scratch / "TWO");
    for (const char* file : {"Settings/KUID.txt", "Settings/Inner/a.TXT", "two/x", "TWO/y", "n1"}) {
      PutFile(scratch / file, file);
    }
  }
  // What is found, below the scratch folder; "-" for nothing.
  std::string Found(const std::string& path) { return Below(FindExisting(scratch / path)); }
  std::string Resolved(const std::string& path) { return Below(ResolveCase(scratch / path)); }
  std::string Below(const std::optional<std::string>& path) {
    return path ? path->substr(scratch.path().size() + 1) : "-";
  }
  ScratchFolder scratch;
};

TEST_F(NameLookup, FindsByComponents) {
  EXPECT_EQ(Found("Settings/KUID.txt"), "Settings/KUID.txt");
  EXPECT_EQ(Found("settings/kuid.TXT"), "Settings/KUID.txt");
  EXPECT_EQ(Found("SETTINGS\\inner\\A.txt"), "Settings/Inner/a.TXT");
  EXPECT_EQ(Found("settings/./inner/../kuid.txt"), "Settings/./Inner/../KUID.txt");
  EXPECT_EQ(Found("settings/none"), "-");
  EXPECT_EQ(Found("settings/kuid.txt/below"), "-");
  EXPECT_EQ(Found("N1"), "n1");
}

TEST_F(NameLookup, TakesTheExactNameElseTheFirstInFindOrder) {
  EXPECT_EQ(Found("two/x"), "two/x");
  EXPECT_EQ(Found("TWO/y"), "TWO/y");
  EXPECT_EQ(Found("Two"), "TWO");
  // One folder is chosen for each component: what only the other one holds isn't seen.
  EXPECT_EQ(Found("Two/x"), "-");
}

TEST_F(NameLookup, NewNamesStayAsGivenInTheFolderThatIsFound) {
  EXPECT_EQ(Resolved("settings/New.Txt"), "Settings/New.Txt");
  EXPECT_EQ(Resolved("settings/New/Deep/File"), "Settings/New/Deep/File");
  EXPECT_EQ(Resolved("settings/kuid.txt"), "Settings/KUID.txt");
}

TEST_F(NameLookup, LinksAreFoundByName) {
  std::filesystem::create_symlink("nowhere", scratch / "Broken");
  EXPECT_EQ(Found("broken"), "Broken");
  EXPECT_FALSE(FindExisting("c:/anything").has_value());
  EXPECT_FALSE(ResolveCase(std::string(300, 'a')).has_value());
}

}  // namespace
}  // namespace Nox
