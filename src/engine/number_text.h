#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Nox {

// Numbers in text, read and written in the "C" locale whatever the process is set to.
//
// A Scan function passes over leading blanks, reads the longest number, moves `text` behind it and stores it.
// Without a digit it answers false and leaves both alone.

// As "%d": a sign and decimal digits. What doesn't fit into 32 bits becomes the nearest value that does.
[[nodiscard]] bool ScanInt(std::string_view& text, std::int32_t& value);

// As "%u", but a minus sign isn't taken. What doesn't fit becomes the largest value.
[[nodiscard]] bool ScanUnsigned(std::string_view& text, std::uint32_t& value);

// As "%f": a sign, digits with at most one point, an exponent. What is too large becomes infinite, what is
// too small zero. The words for infinity and not-a-number aren't numbers here.
[[nodiscard]] bool ScanFloat(std::string_view& text, float& value);

// The number at the start of the text; 0 where there is none.
std::int32_t ReadInt(std::string_view text);
float ReadFloat(std::string_view text);

// As printf's "%.<decimals>f"; decimals from 0 to 100.
std::string FormatFloat(float value, int decimals);

// The fewest digits that read back as the same value.
std::string ShortestFloat(float value);

}  // namespace Nox
