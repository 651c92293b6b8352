#include "validation/categories/keyword_index.h"

#include "engine/text.h"
#include "validation/categories/category_expression.h"

namespace morvex {
namespace {

constexpr std::string_view kSeparators = " \t\r\n'\",()_|";

struct ClassWord {
  std::string_view expression;
  std::string_view word;
};

constexpr ClassWord kClassWords[] = {
    {"ACTV", "interactive"},
    {"LOCO", "locomotive"},
    {"TEND", "tender"},
    {"ROLL", "rollingstock"},
};

}  // namespace

std::string KeywordsFromText(std::string_view text) {
  std::string words;
  bool inWord = false;
  for (const char c : text) {
    const bool separator = kSeparators.find(c) != kSeparators.npos;
    if (!separator) {
      words += Nox::ToLower(c);
    } else if (inWord) {
      words += ';';
    }
    inWord = !separator;
  }
  return words;
}

std::string RebuildKeywordIndex(const KeywordSource& record) {
  std::string index;
  std::string extra = KeywordsFromText(record.displayName);
  for (const ClassWord& row : kClassWords) {
    if (MatchExpression(record.categoryClass, row.expression)) extra.append(";").append(row.word);
  }
  CategoryMerge(record.keywords, extra, index);
  return index;
}

}  // namespace morvex
