#include "validation/qel/validate_asset.h"

#include "tests/qel/qel_fixture.h"

namespace QELLib {
namespace {

class ValidateAssetTest : public QelTest {
 protected:
  ValidateAssetTest() {
    Define("thing\n{\ntop-level 1\nsubpossibilities\n{\nkind { kind \"value\" type \"string\" }\n" +
           kCommonTags + "}\n}\n");
  }
};

TEST_F(ValidateAssetTest, TakesTheTextBeforeTheBinaryForm) {
  std::filesystem::create_directories(root_ / "local/asset");
  EXPECT_EQ(JudgeFolder(), "bad") << "nothing is said of a folder without a configuration";
  Write("local/asset/config.chump", "no chump");
  EXPECT_EQ(JudgeFolder(), "bad\nerror 115");
  EXPECT_EQ(Judge("kind \"thing\"\n"), "good");
  EXPECT_EQ(Manager().ConfigName(), "config.txt");
}

TEST_F(ValidateAssetTest, TextsOfTheAssetAreNoFormats) {
  EXPECT_EQ(Judge("kind \"thing\"\n%s%n%d \"x\"\n"), "bad\nerror 107 %s%n%d thing");
}

TEST_F(ValidateAssetTest, FailsWithoutDefinitions) {
  std::filesystem::remove_all(root_ / "bin/QELData");
  Start();
  EXPECT_EQ(Judge("kind \"thing\"\n"), "bad\nerror ") << "without a message table the text is empty";
}

TEST_F(ValidateAssetTest, ManyTagsTakeNoMoreThanTheirShare) {
  std::string config = "kind \"thing\"\n";
  for (int i = 0; i < 10000; ++i)
    config += "tag" + std::to_string(i) + " \"" + std::to_string(i) + "\"\n";
  const std::string said = Judge(config + "long \"" + std::string(1 << 20, 'x') + "\"\n");
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 10001);
}

}  // namespace
}  // namespace QELLib
