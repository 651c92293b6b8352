#pragma once

#include <cstddef>
#include <string_view>

namespace morvex {

// Equal but for the case of ASCII letters. Control characters are equal among themselves.
bool CompareNoCase(std::string_view a, std::string_view b);

// Compares byte by byte. A '?' in the pattern stands for any byte, and a letter for both its cases. True
// if text and pattern end together, or if `allowPrefix` is set and the pattern ends first.
bool MatchPattern(std::string_view text, std::string_view pattern, bool allowPrefix);

// True if `tag` has exactly `length` bytes and they are those at `text`, whatever the case of ASCII letters.
// An absent text gives false; so does an absent tag, which is logged.
bool comptagstr(const char* text, size_t length, const char* tag);

}  // namespace morvex
