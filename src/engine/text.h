#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Nox {

// Text helpers that know ASCII alone. Bytes from 0x80 up stand for themselves, whatever the locale.

constexpr char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// The blanks between words: space, tab, line ends, vertical tab and form feed.
constexpr bool IsBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string ToLower(std::string_view text);
void LowerInPlace(std::string& text);

bool EqualsIgnoreCase(std::string_view a, std::string_view b);
bool StartsWithIgnoreCase(std::string_view text, std::string_view start);
bool EndsWithIgnoreCase(std::string_view text, std::string_view end);

// Below, at or above zero, by the lowered bytes taken as unsigned.
int CompareIgnoreCase(std::string_view a, std::string_view b);

// The first place of `what` at or behind `from`, npos if there is none.
std::size_t FindIgnoreCase(std::string_view text, std::string_view what, std::size_t from = 0);

// The text without the blanks at its ends.
std::string_view Trim(std::string_view text);

// Functors of containers whose keys don't tell cases apart. Keys are looked up by view, without a copy.
struct HashIgnoreCase {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const;
};
struct EqualIgnoreCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return EqualsIgnoreCase(a, b); }
};
struct LessIgnoreCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return CompareIgnoreCase(a, b) < 0; }
};

}  // namespace Nox
