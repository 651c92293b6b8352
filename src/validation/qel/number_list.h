#pragma once

#include <string_view>
#include <vector>

namespace QELLib {

// The pieces of a list of numbers. Each blank and each comma separates, so that two in a row have an empty
// piece between them; the empty text is one empty piece.
[[nodiscard]] std::vector<std::string_view> SplitNumbers(std::string_view text);

// Their values; a piece that is no number counts as 0.
[[nodiscard]] std::vector<float> ParseNumbers(std::string_view text);

}  // namespace QELLib
