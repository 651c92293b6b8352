#include "validation/qel/number_list.h"

#include "engine/number_text.h"
#include "engine/text.h"

namespace QELLib {

std::vector<std::string_view> SplitNumbers(std::string_view text) {
  std::vector<std::string_view> pieces;
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != ',' && !Nox::IsBlank(text[i])) continue;
    pieces.push_back(text.substr(start, i - start));
    start = i + 1;
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

std::vector<float> ParseNumbers(std::string_view text) {
  std::vector<float> numbers;
  for (const std::string_view piece : SplitNumbers(text))
    numbers.push_back(Nox::ReadFloat(piece));
  return numbers;
}

}  // namespace QELLib
