#include "engine/config_parser.h"

#include <gtest/gtest.h>

namespace Nox {
namespace {

// Items as key[value|value]{children}, separated by blanks.
std::string Tree(const ConfigData& parent, int depth = 0) {
  std::string text;
  for (auto item = parent.FirstChild(); item && depth < 8; item = item.Next()) {
    if (!text.empty()) text += ' ';
    text += item.Key();
    ConfigValues values = item.Values();
    std::string_view value;
    std::string all;
    while (values.Next(value))
      all += (all.empty() ? "" : "|") + std::string(value);
    if (!all.empty()) text += '[' + all + ']';
    if (item.HasChildren()) text += '{' + Tree(item, depth + 1) + '}';
  }
  return text;
}

TEST(ConfigParser, ReadsItems) {
  // What stands behind the version, and its tree.
  const char* const kCases[][2] = {
      {"", ""},
      {"a", "a"},
      {"a 1 two \"and three\"", "a[1|two|and three]"},
      {"a 1; b 2;; c", "a[1] b[2] c"},
      {"a { b 1; c { d } } e", "a{b[1] c{d}} e"},
      {"a {b}c{d}", "a{b} c{d}"},
      {"a 1\r\n\r\n{ b }", "a[1]{b}"},  // braces may stand on a line of their own
      {"a {\n}\nb", "a b"},             // no children
      {"a # { b\nc // }\nd", "a c d"},  // comments
      {"a b//c\nd \"#x//y;{}\"", "a[b] d[#x//y;{}]"},
      {"a\"b\"c", "a[b|c]"},
      {"\"a key\" 1", "a key[1]"},
      {"a\tb\vc", "a[b|c]"},
      {"mesh 0.1 { name \"engine_far.im\" }\nmesh \"door\" { name \"door.im\"; animated true }",
       "mesh[0.1]{name[engine_far.im]} mesh[door]{name[door.im] animated[true]}"},
  };
  for (const auto& [written, tree] : kCases) {
    const std::string text = "version 1.0\n" + std::string(written);
    ConfigParser parser;
    ASSERT_TRUE(parser.Parse(text)) << written;
    EXPECT_EQ(Tree(parser.Top()), "version[1.0]" + std::string(*tree == 0 ? "" : " ") + tree) << written;
  }
}

TEST(ConfigParser, RefusesWhatIsWrong) {
  std::string nested = "version 1.0\n";
  for (std::size_t i = 0; i < ConfigParser::kMaxDepth; ++i)
    nested += "a{";
  const std::string closed(ConfigParser::kMaxDepth, '}');
  for (const std::string& text :
       {std::string("\xEF\xBB\xBFVERSION 1.5"), std::string("# first\n\nversion 2"), nested + closed})
    EXPECT_TRUE(ConfigParser().Parse(text)) << text.substr(0, 40);
  for (const char* text : {"", "a 1\nversion 1.0", "version", "version one", "version 1.0x", "version 1.0\n}",
                           "version 1.0\na {", "version 1.0\na { } {}", "version 1.0\na; {}",
                           "version 1.0\na \"open\nb\"", "version 1.0\na \"open"})
    EXPECT_FALSE(ConfigParser().Parse(text)) << text;
  EXPECT_FALSE(ConfigParser().Parse(nested + "a{}" + closed));
  EXPECT_FALSE(ConfigParser().Parse(nested));
}

TEST(ConfigParser, FindsItemsAndTheirValues) {
  const std::string text = "version 1.0\nMesh 1.5 { on TRUE; off 0; n 1 2 3 }\nmesh two\nother";
  ConfigParser parser;
  ASSERT_TRUE(parser.Parse(text));
  const ConfigData top = parser.Top();
  EXPECT_EQ(top.Count("MESH"), 2U);
  EXPECT_TRUE(top.Find("mesh", 1));
  EXPECT_FALSE(top.Find("mesh", 2));
  EXPECT_FALSE(top.Find("none").Find("none").HasChildren());

  float number = 7;
  EXPECT_FALSE(top.Find("mesh", 1) >> number);
  EXPECT_FALSE(top.Find("other") >> number);
  EXPECT_FALSE(top.Find("none") >> number);
  EXPECT_EQ(number, 7);
  EXPECT_TRUE(top.Find("mesh") >> number);
  EXPECT_EQ(number, 1.5);

  const ConfigData mesh = top.Find("mesh");
  bool truth = false;
  EXPECT_TRUE(mesh.Find("on") >> truth);
  EXPECT_TRUE(truth);
  EXPECT_FALSE(top.Find("mesh") >> truth);
  EXPECT_TRUE(truth);
  EXPECT_TRUE(mesh.Find("off") >> truth);
  EXPECT_FALSE(truth);
  EXPECT_TRUE(mesh.Find("n") >> truth);
  EXPECT_TRUE(truth);

  float numbers[3] = {};
  EXPECT_TRUE(mesh.Find("n") >> std::span<float>(numbers));
  EXPECT_EQ(numbers[2], 3);
  EXPECT_FALSE(mesh.Find("n") >> std::span<float>(numbers).first(2));
  EXPECT_FALSE(mesh.Find("off") >> std::span<float>(numbers));
}

}  // namespace
}  // namespace Nox
