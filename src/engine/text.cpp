#include "engine/text.h"

#include <algorithm>
#include <cstdint>

namespace Nox {

std::string ToLower(std::string_view text) {
  std::string lowered(text);
  LowerInPlace(lowered);
  return lowered;
}

void LowerInPlace(std::string& text) {
  for (char& c : text)
    c = ToLower(c);
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return ToLower(x) == ToLower(y); });
}

bool StartsWithIgnoreCase(std::string_view text, std::string_view start) {
  return EqualsIgnoreCase(text.substr(0, start.size()), start);
}

bool EndsWithIgnoreCase(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && EqualsIgnoreCase(text.substr(text.size() - end.size()), end);
}

int CompareIgnoreCase(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference =
        static_cast<unsigned char>(ToLower(a[i])) - static_cast<unsigned char>(ToLower(b[i]));
    if (difference != 0) return difference;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

std::size_t FindIgnoreCase(std::string_view text, std::string_view what, std::size_t from) {
  for (std::size_t at = from; at <= text.size() && what.size() <= text.size() - at; ++at) {
    if (EqualsIgnoreCase(text.substr(at, what.size()), what)) return at;
  }
  return std::string_view::npos;
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

std::size_t HashIgnoreCase::operator()(std::string_view text) const {
  std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
  for (char c : text)
    hash = (hash ^ static_cast<unsigned char>(ToLower(c))) * 0x100000001B3;
  return hash;
}

}  // namespace Nox
