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
  const std::string rows[][2] = {
      {"status \"<kuid:1 2>\"\r\n", "[status][<kuid:1 2>]"},
      {"status <kuid:1:2>\n", "[status][<kuid:1:2>]"},
      {"  a  b", "[][a][][b]"},
      {"ab\"cd\"ef g", "[cd][g]"},
      {"\"never closed", ""},
      {"echo x\rversion\n", "[echo][x]"},
      {std::string("a b\0c", 5), "[a][b]"},
  };
  for (const auto& [line, arguments] : rows)
    EXPECT_EQ(Split(line), arguments) << line;
}

}  // namespace
}  // namespace morvex
