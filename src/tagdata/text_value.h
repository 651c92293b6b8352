#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tagdata/text_cursor.h"

namespace morvex {

// The values of the text form. What a value is shows in the whole rest of its line.
enum class TextValue { kNone, kSoup, kInt, kFloat, kFloatList, kString };

// Moves to the first byte of the value, or behind the brace that opens a soup; without a value nothing moves.
TextValue ClassifyValue(TextCursor& in);

// From the first byte of the value: a number's text, at most `limit` bytes of it; what is longer is read over.
std::string_view ReadShortText(TextCursor& in, size_t limit);

// From the first byte of the value: a string, without its quotes and with its line ends as CR LF. The view is
// of the text itself, or of `buffer` if something had to be changed.
std::string_view ReadStringValue(TextCursor& in, std::string& buffer);

}  // namespace morvex
