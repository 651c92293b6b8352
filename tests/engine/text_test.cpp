#include "engine/text.h"

#include <gtest/gtest.h>

namespace Nox {
namespace {

TEST(Text, ComparesWithoutRegardToAsciiCase) {
  struct Row {
    std::string_view a, b;
    bool less;
  };
  for (const Row& row : {Row{"", "", false},
                         {"abc", "ABC", false},
                         {"abc", "abd", true},
                         {"_", "a", true},
                         {"\xC4", "\xE4", true},
                         {"a", "\x80", true}}) {
    EXPECT_EQ(CompareIgnoreCase(row.a, row.b) < 0, row.less) << row.a << " " << row.b;
    EXPECT_EQ(CompareIgnoreCase(row.b, row.a) > 0, row.less) << row.a << " " << row.b;
    EXPECT_EQ(EqualsIgnoreCase(row.a, row.b), !row.less);
  }
}

}  // namespace
}  // namespace Nox
