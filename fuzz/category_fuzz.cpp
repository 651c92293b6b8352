#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "validation/categories/category_class.h"
#include "validation/categories/category_expression.h"
#include "validation/categories/category_tables.h"

// Input: a value, a NUL, an expression; without a NUL the whole input is both. The matcher, which works in
// place, must agree with a plain one that splits the texts first.
namespace {

std::vector<std::string> Split(std::string_view text, char at) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == at) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

bool TokenHolds(const std::vector<std::string>& value, const std::string& token) {
  if (token.starts_with('-')) return !TokenHolds(value, token.substr(1));
  for (const std::string& have : value) {
    if (!token.empty() && have == token) return true;
  }
  return false;
}

bool PlainMatch(std::string_view value, std::string_view expression) {
  const std::vector<std::string> tokens = Split(Split(value, '|')[0], ';');
  std::vector<std::string> terms = Split(expression, '|');
  if (terms.size() > 1 && terms.back().empty()) terms.pop_back();
  for (const std::string& term : terms) {
    bool holds = true;
    for (const std::string& token : Split(term, ';')) {
      holds = holds && (token.empty() || TokenHolds(tokens, token));
    }
    if (holds) return true;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 1024) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const size_t nul = input.find('\0');
  const std::string_view value = input.substr(0, nul);
  const std::string_view expression = nul == input.npos ? input : input.substr(nul + 1);

  if (morvex::MatchExpression(value, expression) != PlainMatch(value, expression)) std::abort();
  std::string once;
  morvex::CategoryMerge(value, expression, once);
  if (!once.starts_with(value)) std::abort();
  morvex::CategoryLabel(morvex::CategoryLabelTable, value);
  morvex::ClassFromKindAndType(value, expression);
  morvex::KindFromClass(value);
  morvex::IsValidCategoryClass(expression);
  return 0;
}
