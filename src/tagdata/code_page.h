#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace morvex {

// The system code page is Windows-1252; all text in memory is UTF-8. Both conversions go through UTF-16
// units in meaning only: one byte of the code page is one character.

std::string AnsiAsUtf8(std::string_view ansi);
// None if `utf8` isn't well-formed. Characters outside the code page become '?'.
std::optional<std::string> Utf8AsAnsi(std::string_view utf8);

// In place, on a text ended by NUL in a buffer of `capacity` bytes. The result is 0 on success; the size
// needed, NUL included, if that exceeds `capacity`, with the buffer untouched; -1 if the text can't be
// converted, with each byte of 128 and above replaced by '?'. A buffer without a NUL can't be converted.
std::ptrdiff_t AnsiToUtf8(char* buffer, size_t capacity);
std::ptrdiff_t Utf8ToAnsi(char* buffer, size_t capacity);

}  // namespace morvex
