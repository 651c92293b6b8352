#include <gtest/gtest.h>

#include <tuple>

#include "tagdata/code_page.h"
#include "tagdata/text_match.h"

namespace morvex {
namespace {

TEST(CodePage, EveryByteComesBack) {
  std::string all;
  for (int c = 1; c < 256; ++c)
    all += static_cast<char>(c);
  const std::string utf8 = AnsiAsUtf8(all);
  EXPECT_EQ(Utf8AsAnsi(utf8), all);
  EXPECT_EQ(AnsiAsUtf8("\x80\x81\xE9"), "\xE2\x82\xAC\xC2\x81\xC3\xA9");
  EXPECT_EQ(Utf8AsAnsi("a\xE4\xB8\xAD\xF0\x9F\x9A\x82"), "a??");
  for (const char* bad :
       {"\xC3", "\x80", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"})
    EXPECT_EQ(Utf8AsAnsi(bad), std::nullopt);
}

TEST(CodePage, ConvertsInPlaceOrSaysWhatItNeeds) {
  char text[] = "\xE9\x80\0\0\0";
  EXPECT_EQ(AnsiToUtf8(text, 5), 6);
  EXPECT_STREQ(text, "\xE9\x80");
  EXPECT_EQ(AnsiToUtf8(text, 6), 0);
  EXPECT_STREQ(text, "\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(Utf8ToAnsi(text, 6), 0);
  EXPECT_STREQ(text, "\xE9\x80");
  EXPECT_EQ(Utf8ToAnsi(text, 6), -1);
  EXPECT_STREQ(text, "??");
  EXPECT_EQ(AnsiToUtf8(text, 2), -1) << "no terminator within the buffer";
}

TEST(TextMatch, FoldsLettersAndControls) {
  EXPECT_TRUE(CompareNoCase("Config\n\x01", "cONFIG\t\x02"));
  EXPECT_FALSE(CompareNoCase("a", "ab") || CompareNoCase("[", "{") || CompareNoCase("\xC9", "\xE9"));
}

TEST(TextMatch, MatchesPatterns) {
  const std::tuple<const char*, const char*, bool, bool> cases[] = {
      {"Engine", "eNG?nE", true, true}, {"engine2", "engine", false, true},
      {"eng", "eng?", false, false},    {"", "", true, true},
      {"x", "", false, true},           {"[", "{", false, false},
  };
  for (const auto& [text, pattern, whole, prefix] : cases) {
    EXPECT_EQ(MatchPattern(text, pattern, false), whole) << text;
    EXPECT_EQ(MatchPattern(text, pattern, true), prefix) << text;
  }
  EXPECT_TRUE(comptagstr("KIND x", 4, "kind"));
  EXPECT_FALSE(comptagstr("KIND x", 4, "kin"));
  EXPECT_FALSE(comptagstr(nullptr, 0, "kind"));
  EXPECT_FALSE(comptagstr("kind", 4, nullptr));
}

}  // namespace
}  // namespace morvex
