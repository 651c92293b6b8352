#include "database/catalogue/keywords.h"

#include <gtest/gtest.h>

#include "database/catalogue/kuid_generator.h"
#include "tests/catalogue/installation.h"

namespace morvex::test {
namespace {

TEST(KeywordTest, DumpAndImportCarryTheWords) {
  Installation place;
  place.AddAsset("local/a", "<kuid:1:1>", "Big Engine", "category-keyword \"Red\"");
  place.AddAsset("local/b", "<kuid:1:2>", "Anvil");
  place.Start();
  ASSERT_TRUE(ZEBDumpKeywords());
  const std::string dump = place.Read("KeywordsDump.dat");
  EXPECT_NE(dump.find("\"red;big;engine\""), std::string::npos) << dump;
  EXPECT_LT(dump.find("<kuid:1:2>"), dump.find("<kuid:1:1>")) << "in the order of names";

  place.Write("KeywordsDump.dat", "<kuid:1:1>\t\"blue\"\r\n<kuid:9:9>\t\"unknown\"\r\nrubbish 5\r\n");
  ASSERT_TRUE(ZEBImportKeywords(place.Path(""), "KeywordsDump.dat", "txt"));
  place.Restart();
  EXPECT_EQ(Record("<kuid:1:1>").Text(AssetText::kKeywords), "blue");
  EXPECT_EQ(Record("<kuid:1:1>").SearchWords(), "blue;big;engine");
  EXPECT_EQ(Record("<kuid:1:2>").SearchWords(), "anvil");

  place.Remove("KeywordsDump.dat");
  EXPECT_FALSE(ZEBImportKeywords(place.Path(""), "KeywordsDump.dat", "txt"));
}

TEST(KuidGeneratorTest, GoesOnFromTheStoredBaseAndSkipsWhatIsTaken) {
  Installation place;
  std::string root;
  EXPECT_TRUE(ZEBGetRoot(root));
  EXPECT_EQ(root, "-foobar-") << "until it is set";
  place.Write("settings/kuid.txt", "base-kuid <kuid2:12345:77:9>\r\n");
  place.AddAsset("local/a", "<kuid:12345:78>", "A");
  place.AddAsset("local/b", "<kuid:12345:79>", "B");
  place.Start();
  EXPECT_EQ(ZEBLocalUser(), 12345);
  EXPECT_TRUE(KUID(12345, 1, 0).IsLocalAuthor());
  EXPECT_EQ(ZEBGenerateKUID(), KUID(12345, 80, 0));
  EXPECT_FALSE(ZEBSetBaseKuid(KUID()));
  EXPECT_TRUE(ZEBSetBaseKuid(KUID(5, 1, 0)));
  EXPECT_EQ(ZEBGenerateKUID(), KUID(5, 2, 0));
}

TEST(KuidGeneratorTest, AFullDiskDoesNotMakeItRepeatItself) {
  Installation place;
  place.Start();
  place.Remove("settings");
  place.Write("settings", "a file in the way");
  testing::internal::CaptureStdout();
  const KUID first = ZEBGenerateKUID();
  const KUID second = ZEBGenerateKUID();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Unable to write 'Settings/kuid.txt' file.\nUnable to write 'Settings/kuid.txt' file.\n");
  EXPECT_NE(first, second);
}

}  // namespace
}  // namespace morvex::test
