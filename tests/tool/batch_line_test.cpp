#include "frontend/tool/batch_line.h"

#include <gtest/gtest.h>

namespace morvex {
namespace {

std::string Split(const std::string& line) {
  std::string text;
  for (const std::string& argument : SplitBatchLine(line))
    text += "[" + argument + "]";
  return text;
}

TEST(BatchLine, SplitsAtBlanksAndQuotes) {
  const struct {
    std::string line, arguments;
  } rows[] = {
      {"status \"<kuid:1 2>\"\r\n", "[status][<kuid:1 2>]"},
      {"status <kuid:1:2>\n", "[status][<kuid:1:2>]"},
      {"  a  b", "[][a][][b]"},
      {"ab\"cd\"ef g", "[cd][g]"},
      {"\"never closed", ""},
      {"echo x\rversion\n", "[echo][x]"},
      {std::string("a b\0c", 5), "[a][b]"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(Split(row.line), row.arguments) << row.line;
}

TEST(BatchLine, OnlyALineEndIsIdle) {
  EXPECT_TRUE(IsIdleLine(SplitBatchLine("\n")));
  EXPECT_TRUE(IsIdleLine(SplitBatchLine("\r\n")));
  EXPECT_FALSE(IsIdleLine(SplitBatchLine("\"open")));
  EXPECT_FALSE(IsIdleLine(SplitBatchLine("version \n")));
}

}  // namespace
}  // namespace morvex
