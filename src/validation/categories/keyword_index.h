#pragma once

#include <string>
#include <string_view>

namespace morvex {

// The words of a text as a category string, in lower case. One ';' stands for each run of separators behind a
// word, so that a text that ends in one ends in a ';'.
std::string KeywordsFromText(std::string_view text);

// What a keyword search looks through: the keywords of a record, the words of its display name, and words
// for what it is by its category class.
struct KeywordSource {
  std::string_view keywords;
  std::string_view displayName;
  std::string_view categoryClass;
};
std::string RebuildKeywordIndex(const KeywordSource& record);

}  // namespace morvex
