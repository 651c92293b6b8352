#include "packages/file_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace morvex {
namespace {

TEST(FileRules, NamesAreOneSafeComponentOfAPath) {
  for (const char* name : {"a", "a~b.txt", "Big Engine (blue).im", "-&,+'_$.txt", "a.", "a..b", "0"})
    EXPECT_TRUE(IsValidName(name)) << name;
  for (const char* name : {"", ".", "..", ".hidden", "~ab.txt", " a.txt", "a.txt ", "a/b", "a\\b",
                           "\xC3\xA9.txt", "a\nb", "a:b", "a*", "a\"b", "a;b", "a\x7F"})
    EXPECT_FALSE(IsValidName(name)) << name;
  EXPECT_FALSE(IsValidName(std::string_view("a\0b", 3)));
}

TEST(FileRules, PassesOverLeftoversOfOtherPrograms) {
  for (const char* name : {"Thumbs.DB", "PSPBRWSE.jbf", "trailing.imw", ".gmw"})
    EXPECT_TRUE(IsIgnoredFile(name)) << name;
  for (const char* name : {"trailing.IMW", "thumbs.db.txt", "imw", "a.imwx"})
    EXPECT_FALSE(IsIgnoredFile(name)) << name;
}

TEST(FileRules, TakesTheListedTypesInAnyCase) {
  for (const char* path :
       {"a.TXT", "x/y.texture", "a.texture.txt", "config.chump", "a.jpeg", "a.wmv", "b.gSe"})
    EXPECT_TRUE(HasAllowedExtension(path)) << path;
  for (const char* path : {"a.exe", "a", "txt", "a.txt.exe", "a.txt/b", "a.tx", "a.imw", "a."})
    EXPECT_FALSE(HasAllowedExtension(path)) << path;
}

}  // namespace
}  // namespace morvex
