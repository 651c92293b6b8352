#include "validation/qel/data_manager.h"

#include "tests/qel/qel_fixture.h"
#include "validation/qel/number_list.h"

namespace QELLib {
namespace {

using DataManagerTest = QelTest;

std::string Lines(const LineTable& table) {
  std::string text;
  for (const LineEntry& line : table)
    text += "[" + line.name.Text() + "|" + line.value.Text() + "]";
  return text;
}

TEST_F(DataManagerTest, SplitsLinesAtTheFirstBlank) {
  Write("bin/QELData/a.txt", "one two three\r\nalone\nblank \n\n" + std::string(256, 'x') + "yz");
  Write("bin/QELData/newFormTemplate.txt", "Scenery\nMAP\n");
  Start();
  EXPECT_EQ(Lines(Manager().GetLineTable(Nox::PString("a.txt"))),
            "[one|two three][alone|][blank |][|][" + std::string(256, 'x') + "|][yz|]");
  EXPECT_EQ(Lines(Manager().GetLineTable(Nox::PString("b.txt"))), "");
  for (const char* kind : {"scenery", "Map", "bridge", "track"}) {
    morvex::TagContainer config;
    config.SetString(Nox::PString("kind"), kind);
    EXPECT_EQ(Manager().IsNewFormKind(config), std::string(kind) != "track") << kind;
  }
}

TEST_F(DataManagerTest, CountOfTagsIsTheLengthOfTheMessageTable) {
  Write("bin/QELData/stringtable.txt", "3 \"three\"\n1 \"one\"\n0 \"zero\"\n");
  Start();
  EXPECT_EQ(Manager().GetString(1), "one");
  EXPECT_EQ(Manager().GetString(2), "");
  EXPECT_EQ(Manager().GetString(3), "") << "a gap in the numbers loses the last entries";
  EXPECT_EQ(Manager().GetString(0xFFFFFFFF), "");
}

TEST_F(DataManagerTest, ReadsTheTableOfTheNewestProduct) {
  Write("bin/QELData/stringtable.txt", "0 \"plain\"\n");
  Write("bin/QELData/stringtable-CH.txt", "0 \"swiss\"\n");
  const auto entry = [](const char* number, const char* build, const char* language) {
    return std::string(number) + "\n{\nProductClass \"MorvexClassic\"\nExePath \"/p" + number +
           "\"\nProductBuild \"" + build + "\"\nProductLanguage \"" + language + "\"\n}\n";
  };
  const auto language = [&](const std::string& entries) {
    Write("products.txt", "MorvexClassic\n{\n" + entries + "}\n");
    Start();
    return Manager().Language() + " " + Manager().GetString(0).Text();
  };
  EXPECT_EQ(language(""), " plain");
  EXPECT_EQ(language(entry("0", "5", "ch") + entry("1", "5", "DE")), "ch swiss")
      << "the first of equal builds";
  EXPECT_EQ(language(entry("0", "5", "CH") + entry("1", "6", "??")), "US plain");
  EXPECT_EQ(language(entry("0", "0", "CH")), " plain") << "a product without a build";
}

TEST_F(DataManagerTest, WritesPersonalDetailsBack) {
  const std::string path = root_ / "bin/QELData/personalDetails.txt";
  Start();
  EXPECT_EQ(Manager().Details(), PersonalDetails());
  Manager().Details().author = Nox::PString("Wilma");
  Manager().Details().isinputboxon = true;
  Stop();
  morvex::TagContainer file;
  ASSERT_TRUE(file.Load({}, path));
  EXPECT_EQ(file.GetCount(), 7u);
  EXPECT_EQ(file.GetName(0), "author");
  EXPECT_EQ(file.GetName(6), "isinputboxon");
  const auto written = std::filesystem::last_write_time(path);
  Start();
  EXPECT_EQ(Manager().Details().author, "Wilma");
  EXPECT_TRUE(Manager().Details().isinputboxon);
  Stop();
  EXPECT_EQ(std::filesystem::last_write_time(path), written) << "a run that changes nothing writes nothing";
}

TEST_F(DataManagerTest, ReadsDefinitionsOnce) {
  const Nox::PString kind("thing");
  Define("thing { a \"1\" }");
  Manager().LoadDefinitions(false);
  Write("bin/QELData/kind.txt", "thing\n{\na 2\n}\n");
  Write("bin/QELData/inheritance.txt", "other\n{\n}\n");
  Manager().LoadDefinitions(false);
  EXPECT_EQ(Manager().GetDefinitions().GetContainer(kind).GetInt(Nox::PString("a")), 1);
  Manager().LoadDefinitions(true);
  EXPECT_EQ(Manager().GetDefinitions().GetContainer(kind).GetInt(Nox::PString("a")), 2);
  EXPECT_EQ(Manager().GetDefinitions().GetName(0), "other") << "inherited definitions stand in front";
}

TEST_F(DataManagerTest, TagsLeaveTheListsWhenTheyGo) {
  Start();
  Container container;
  {
    Tag tag(0, container, Nox::PString("att"));
    Manager().AddAttachmentUser(tag);
    Manager().AddAttachmentUser(tag);
    Manager().AddUniqueAttachmentUser(tag);
    Manager().AddUniqueAttachmentUser(tag);
    EXPECT_EQ(Manager().AttachmentUsers().size(), 1u);
    EXPECT_EQ(Manager().UniqueAttachmentUsers().size(), 2u);
    tag.value = "v";
    Manager().AddSourceEntry(Nox::PString("queues"), SourceEntry(tag));
    EXPECT_TRUE(Manager().IsValueInSource("v", Nox::PString("queues")));
    EXPECT_FALSE(Manager().IsValueInSource("v", Nox::PString("mesh-table")));
  }
  EXPECT_TRUE(Manager().AttachmentUsers().empty());
  EXPECT_TRUE(Manager().UniqueAttachmentUsers().empty());
  EXPECT_FALSE(Manager().IsValueInSource("v", Nox::PString("queues")));
}

TEST_F(DataManagerTest, TakesThePackFromAPathBelowTheRoot) {
  Start();
  Manager().SetAsset("", root_ / "local/kuid 1 2");
  EXPECT_EQ(Manager().GetPackRoot(), "local");
  EXPECT_EQ(Manager().AssetPath(), "kuid 1 2");
  Manager().SetAsset("", "/elsewhere/x");
  EXPECT_EQ(Manager().GetPackRoot(), root_.path());
  Manager().SetAsset("pack", "x");
  EXPECT_EQ(Manager().GetPackRoot(), "pack");
  EXPECT_EQ(Manager().AssetLocation().path, "x");
}

TEST(NumberList, EachSeparatorSeparates) {
  const std::vector<std::pair<const char*, std::vector<float>>> rows = {
      {"", {0}}, {"1,,2", {1, 0, 2}}, {"1.5 -2", {1.5f, -2}}, {"x,3y", {0, 3}}, {"1,", {1, 0}}};
  for (const auto& [text, numbers] : rows)
    EXPECT_EQ(ParseNumbers(text), numbers) << text;
}

}  // namespace
}  // namespace QELLib
