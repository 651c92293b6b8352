#include "tagdata/text_match.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

constexpr bool IsUpper(int c) {
  return c >= 'A' && c <= 'Z';
}
constexpr bool IsLower(int c) {
  return c >= 'a' && c <= 'z';
}

// What each byte counts as in a comparison: all control characters are one, a letter is its number in the
// alphabet, and every other byte is itself.
constexpr std::array<uint8_t, 256> kFold = [] {
  std::array<uint8_t, 256> fold{};
  for (int c = 0; c < 256; ++c) {
    int folded = c;
    if (c < 32) folded = 255;
    if (IsUpper(c)) folded = c - 'A' + 1;
    if (IsLower(c)) folded = c - 'a' + 1;
    fold[static_cast<size_t>(c)] = static_cast<uint8_t>(folded);
  }
  return fold;
}();

uint8_t Fold(char c) {
  return kFold[static_cast<uint8_t>(c)];
}

char ToLower(char c) {
  return IsUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameLetter(char a, char b) {
  return ToLower(a) == ToLower(b);
}

}  // namespace

bool CompareNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Fold(x) == Fold(y); });
}

bool MatchPattern(std::string_view text, std::string_view pattern, bool allowPrefix) {
  if (text.size() < pattern.size() || (text.size() > pattern.size() && !allowPrefix)) return false;
  return std::equal(pattern.begin(), pattern.end(), text.begin(),
                    [](char wanted, char byte) { return wanted == '?' || SameLetter(wanted, byte); });
}

bool comptagstr(const char* text, size_t length, const char* tag) {
  if (text == nullptr) return false;
  if (tag == nullptr) {
    MorvexLog::Message("comptagstr> null str");
    return false;
  }
  return std::strlen(tag) == length && std::equal(tag, tag + length, text, SameLetter);
}

}  // namespace morvex
