#include "frontend/tool/batch_line.h"

#include <cstddef>

namespace morvex {

namespace {

constexpr std::size_t kUnset = std::string_view::npos;

// The text up to its first line end or NUL. A line end in the first place stays: it marks an empty line.
std::string_view CutAtLineEnd(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  const std::size_t end = text.find_first_of("\r\n", 1);
  return text.substr(0, end);
}

}  // namespace

std::vector<std::string> SplitBatchLine(std::string_view text) {
  text = CutAtLineEnd(text);
  std::string line;
  if (text.empty() || text.front() != ' ') line += ' ';
  line += text;
  line += ' ';

  std::vector<std::string> arguments;
  std::size_t start = kUnset;
  bool inQuote = false;
  std::size_t i = 0;
  while (i < line.size()) {
    if (line[i] == '"') {
      if (inQuote) {
        arguments.push_back(line.substr(start, i - start));
        start = kUnset;
      } else {
        start = i + 1;
      }
      inQuote = !inQuote;
    } else if (line[i] == ' ' && !inQuote) {
      if (start != kUnset) {
        arguments.push_back(line.substr(start, i - start));
        start = kUnset;
        continue;  // This blank opens the next argument.
      }
      start = i + 1;
    }
    ++i;
  }
  return arguments;
}

bool IsIdleLine(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return false;
  const std::string& last = arguments.back();
  return !last.empty() && (last[0] == '\r' || last[0] == '\n' || last[0] == ' ');
}

}  // namespace morvex
