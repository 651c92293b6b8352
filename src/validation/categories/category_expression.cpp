#include "validation/categories/category_expression.h"

#include <algorithm>
#include <utility>

#include "validation/categories/token_set.h"

namespace morvex {
namespace {

constexpr size_t kEnd = std::string_view::npos;

// Takes the front of `text` up to `end` off it; the end itself stays.
std::string_view TakeUntil(std::string_view& text, char end) {
  const std::string_view front = text.substr(0, text.find(end));
  text.remove_prefix(front.size());
  return front;
}

// The innermost loop of a search: most tokens differ in their first letter or length.
bool HasToken(std::string_view value, std::string_view token) {
  if (token.empty()) return false;
  const char* place = value.data();
  const char* const end = place + value.size();
  while (static_cast<size_t>(end - place) >= token.size()) {
    const char* const behind = place + token.size();
    if ((behind == end || *behind == ';') && std::equal(place, behind, token.data())) return true;
    while (place != end && *place != ';')
      ++place;
    if (place == end) return false;
    ++place;
  }
  return false;
}

// `token` is one whole token, `value` ends at its '|'.
bool TokenHolds(std::string_view value, std::string_view token) {
  size_t dashes = 0;
  while (dashes < token.size() && token[dashes] == '-')
    ++dashes;
  const bool has = HasToken(value, token.substr(dashes));
  return dashes % 2 == 0 ? has : !has;
}

std::string_view ValuePart(std::string_view value) {
  return value.substr(0, value.find('|'));
}

}  // namespace

bool CategoryTokenMatches(std::string_view value, std::string_view token) {
  return TokenHolds(ValuePart(value), token.substr(0, token.find_first_of(";|")));
}

bool MatchExpression(std::string_view value, std::string_view expression) {
  value = ValuePart(value);
  do {
    std::string_view term = TakeUntil(expression, '|');
    bool holds = true;
    while (holds && !term.empty()) {
      const std::string_view token = TakeUntil(term, ';');
      if (!token.empty()) holds = TokenHolds(value, token);
      if (!term.empty()) term.remove_prefix(1);
    }
    if (holds) return true;
    if (!expression.empty()) expression.remove_prefix(1);
  } while (!expression.empty());
  return false;
}

void CategoryMerge(std::string_view base, std::string_view extra, std::string& out) {
  std::string merged(base);
  // What is appended behind a '|' of the base is no token of the result, and so is never found there.
  const bool open = base.find('|') == kEnd;
  TokenSet present(ValuePart(base));
  while (!extra.empty()) {
    const std::string_view token = TakeUntil(extra, ';');
    if (!extra.empty()) extra.remove_prefix(1);
    if (token.empty()) continue;
    const size_t dashes = std::min(token.find_first_not_of('-'), token.size());
    const bool has = present.Contains(token.substr(dashes));
    if (has == (dashes % 2 == 0)) continue;
    if (!merged.empty()) merged += ';';
    merged += token;
    if (open) present.Insert(token);
  }
  out = std::move(merged);
}

}  // namespace morvex
