#include "tagdata/text_config.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

#include "tagdata/buffer_stream.h"
#include "tagdata/chump_file.h"
#include "tests/tagdata/soup_tree.h"

namespace morvex {
namespace {

using std::string_literals::operator""s;

TEST(TextConfig, ReadsValuesByTheirLine) {
  const std::tuple<std::string, const char*> kCases[] = {
      {"a 5\nb -5\nc \t007 \n", "a=5 b=-5 c=7"},
      {"a 5.0\nb .5\nc -1.2.3", "a=f5 b=f0.5 c=f-1.2"},
      {"a 99999999999\nb -99999999999", "a=2147483647 b=-2147483648"},
      {"a -\nb .\nc -.", "a=0 b=f0 c=f0"},
      {"a 1,2,3\nb 1 2\t3\nc 1,2,x\nd 2004-05-06", "a=f1,2,3 b=f1,2,3 c=\"1,2,x\" d=f2004"},
      {"a 1\na ,\nb 2", "b=2"},
      {"a 12 abc\nb +5\nc 1e5\nd -a", "a=\"12 abc\" b=\"+5\" c=\"1e5\" d=\"-a\""},
      {"a abc\"def \nb \"abc\"def\nc 1", "a=\"abc\"def \" b=\"abc\" def c=1"},
      {"a \"\"\nb\nc 1", "a=\"\" b c=1"},
      {"; note\n// x", ";=\"note\" //=\"x\""},
      {"a {\nb 1\n}\nc \n\n {d 2\n}", "a{b=1} c{d=2}"},
      {"a { b 1 }c 2", "a{b=\"1 \"} c=2"},
      {"a x}b 1", "a=\"x\""},
      {"a}b 1", "a"},
      {"a 1\nb 2\na 3", "b=2 a=3"},
      {"MyKey{ 1\nKEY\"x 2", "mykey{=1 key\"x=2"},
      {"a x\\ny\\n\nb \"x\\ny\"\nc \\nx", "a=\"x\r\ny\r\n\" b=\"x\\ny\" c=\"\\nx\""},
      {"a \"1\n2\r3\r\n4\n\r5\n\n6\"", "a=\"1\r\n2\r\n3\r\n4\r\n5\r\n\r\n6\""},
      {"a <kuid:1:2>\nb \"<KUID2:1:2:3>\"\nc <kuid2:1:2:3\nd <NULL> x",
       "a=<kuid:1:2> b=<kuid2:1:2:3> c=<kuid2:1:2:3> d=<NULL>"},
      {"a {b {c 1", "a{b{c=1}}"},
      {"a \"cut", "a=\"cut\""},
      {"a { b {} } c 1", "a{b{}} c=1"},
      {"\r\n\t a 1\r", "a=1"},
      {"a 5\0b 6"s, "a=5 b=6"},
      {"a \"x\0b 6"s, "a=\"x\" b=6"},
      {"a\0b 6"s, "a"},
      {"n {\na 1\nb 1\na 2\n}\nm 1\nn {\nc {\na 1\na\n}\n}", "m=1 n{c{a}}"},
      {"", ""},
      {"{", "{"},
  };
  for (const auto& [text, tree] : kCases)
    EXPECT_EQ(Tree(FromText(text)), tree) << text;
}

TEST(TextConfig, CutsWhatIsTooLong) {
  const std::string key(600, 'k');
  EXPECT_EQ(FromText(key + " 1").GetName(0).Length(), 511u);
  const std::string number(40, '1');
  EXPECT_EQ(FromText("a 0." + number).GetFloat(Nox::PString("a")), 0.11111111f);
  std::string list;
  for (int i = 0; i < 200; ++i)
    list += "1 ";
  std::vector<float> values;
  EXPECT_TRUE(FromText("a " + list).GetFloatArray(Nox::PString("a"), values));
  EXPECT_EQ(values.size(), 128u);
}

TEST(TextConfig, ConvertsFromTheCodePageUnlessMarked) {
  const char* const kCases[][2] = {
      {"a caf\xE9", "a=\"caf\xC3\xA9\""},
      {"\xEF\xBB\xBF"
       "a caf\xC3\xA9",
       "a=\"caf\xC3\xA9\""},
      {"a {\xEF\xBB\xBF"
       "b \xC3\xA9\n}\nc \xE9",
       "a{b=\"\xC3\xA9\"} c=\"\xC3\xA9\""},
      {"k\xE9 1", "k\xE9=1"},
  };
  for (const auto& [text, tree] : kCases) {
    TagContainer soup;
    ParseSoupText(soup, text, false);
    EXPECT_EQ(Tree(soup), tree) << text;
  }
}

TEST(TextConfig, LeavesTheStreamBehindTheSoup) {
  TBuffer stream;
  const std::string text = "a 1\n}rest";
  stream.Write(text.data(), text.size());
  stream.SeekTo(0);
  TagContainer soup;
  ParseSoup(soup, stream, true);
  EXPECT_EQ(Tree(soup), "a=1");
  EXPECT_EQ(stream.Position(), 4);
}

TEST(TextConfig, WritesTheCanonicalForm) {
  TagContainer soup =
      FromText("name7ch 1\nname8chs 1.5\nk <kuid:1:2>\ns it\ne \"\"\nn {\nl 1,2\nm {\n}\n}\nz 1234567.0");
  soup.SetString(Nox::PString("Q \x80"), "say \"x\"");
  soup.SetRaw(Nox::PString("bin"), ACSRawDataCore::CopyBytes("xy", 2));
  soup.SetInt(Nox::PString(std::string(80, 'l')), 3);
  EXPECT_EQ(
      SoupText(soup),
      "\xEF\xBB\xBF\r\nname7ch\t\t\t\t\t\t\t1\r\nname8chs\t\t\t\t\t\t1.5\r\nk\t\t\t\t\t\t\t<kuid:1:2>\r\n"
      "s\t\t\t\t\t\t\t\"it\"\r\ne\t\t\t\t\t\t\t\r\nn {\r\n\tl\t\t\t\t\t\t1,2\r\n\tm {\r\n\t}\r\n}\r\n"
      "z\t\t\t\t\t\t\t1.23457e+06\r\nq__\t\t\t\t\t\t\t\"say 'x'\"\r\nbin\t\t\t\t\t\t\t\r\n" +
          std::string(80, 'l') + "\t3\r\n");
  EXPECT_EQ(SoupText(TagContainer()), "");
}

// A name that is too long for a chunk makes the reader build a tree of tags in place of a body.
TEST(TextConfig, BothBuildersAndWhatIsWrittenAgree) {
  const Nox::PString longName(std::string(300, 'x'));
  std::mt19937 random(5);
  for (int round = 0; round < 100; ++round) {
    std::string text;
    for (int i = 0; i < 300; ++i) {
      const char* kValues[] = {"1", "", "\"x\"", ",", "{", "}", "{", "1,2", "0.25", "<kuid:1:2>"};
      const char* value = kValues[random() % std::size(kValues)];
      text += *value == '}' ? "}\n" : "name" + std::to_string(random() % 40) + " " + value + "\n";
    }
    TagContainer tree = FromText(longName.Text() + " 1\n" + text);
    EXPECT_TRUE(tree.HasTag(longName));
    tree.Remove(longName);
    ASSERT_EQ(Tree(FromText(text)), Tree(tree)) << text;
    TagContainer again;
    ParseSoupText(again, SoupText(tree), false);
    ASSERT_EQ(Tree(again), Tree(tree)) << text;
    const std::string image = ChumpImage(tree);
    ASSERT_EQ(ChumpImage(FromText(text)), image) << text;
    ASSERT_EQ(Tree(ReadChumpImage(ACSRawDataCore::CopyBytes(image.data(), image.size()))), Tree(tree))
        << text;
  }
}

// Below the deepest level everything is read over; what comes after it is read again.
TEST(TextConfig, DropsWhatIsNestedTooDeep) {
  std::string text;
  for (int i = 0; i < 100000; ++i)
    text += "a {\nv 1\n";
  for (int i = 0; i < 100000; ++i)
    text += "}\n";
  const TagContainer soup = FromText(text + "b 2");
  EXPECT_EQ(soup.GetInt(Nox::PString("b")), 2);
  int depth = 0;
  TagContainer inner = soup;
  while (inner.HasTag(Nox::PString("a"))) {
    inner = inner.GetContainer(Nox::PString("a"));
    ++depth;
  }
  EXPECT_EQ(depth, kMaxSoupDepth);
  EXPECT_EQ(Tree(inner), "v=1");
  TagContainer again;
  ParseSoupText(again, SoupText(soup), false);
  EXPECT_EQ(SoupText(again), SoupText(soup));
}

}  // namespace
}  // namespace morvex
