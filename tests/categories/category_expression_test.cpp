#include "validation/categories/category_expression.h"

#include <gtest/gtest.h>

#include <tuple>

namespace morvex {
namespace {

TEST(CategoryExpression, ChoosesAmongValues) {
  const char* const search = "CMP;MESH|BD;-ACTV|VE|SCEN";
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"BD;IND;NACT", search, true},
      {"BD;IND;ACTV", search, false},
      {"MESH;CMP", search, true},
      {"CMP;TX", search, false},
      {"TR;TV;LOCO", "LOC", false},
      {"TR;XLOC;LOC", "LOC", true},
      {"TR;LOC", "loc", false},
      {"TR;LOC", "-LOC", false},
      {"TR;LOC", "--LOC", true},
      {"TR;LOC", "---LOC", false},
      {"TR;LOC", "TR;;LOC", true},
      {"TR;LOC", ";TR;", true},
      {"TR", "-", true},
      {"TR", "--", false},
      {"", "-X", true},
      {"", "X", false},
      {"", "", true},
      {"A", "|X", true},
      {"A", "X|", false},
      {"A", "X||Y", true},
      {"A", "X|;", true},
      {"A|B", "A", true},
      {"A|B", "B", false},
      {"|B", "-B", true},
      {";A;;B;", "A;B", true},
  };
  for (const auto& [value, expression, holds] : cases) {
    EXPECT_EQ(MatchExpression(value, expression), holds) << value << " against " << expression;
  }
}

TEST(CategoryExpression, ReadsOneTokenOfAnExpression) {
  EXPECT_TRUE(CategoryTokenMatches("A;B", "B;C|D"));
  EXPECT_TRUE(CategoryTokenMatches("A;B", "-C|A"));
  EXPECT_FALSE(CategoryTokenMatches("A;B", ";A"));
  EXPECT_FALSE(CategoryTokenMatches("", "|"));
}

TEST(CategoryExpression, MergesWhatIsMissing) {
  const char* const cases[][3] = {
      {"", "A;B", "A;B"},  {"A", "", "A"},         {"A;B", "B;C;A;D", "A;B;C;D"}, {"A", ";B;;B;", "A;B"},
      {"A;", "B", "A;;B"}, {"A", "-B;-A", "A;-A"}, {"A|B", "A;B", "A|B;B"},
  };
  for (const auto& [base, extra, merged] : cases) {
    std::string out = base;
    CategoryMerge(out, extra, out);
    EXPECT_EQ(out, merged) << base << " and " << extra;
  }
}

TEST(CategoryExpression, MergesLongListsInLinearTime) {
  std::string many;
  for (int i = 0; i < 100000; ++i)
    many += std::to_string(i) + ";";
  std::string out;
  CategoryMerge(many, many + "last", out);
  EXPECT_EQ(out, many + ";last");
}

}  // namespace
}  // namespace morvex
