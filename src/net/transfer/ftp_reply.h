#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace morvex {

// What stands in a reply of FTP, which is a code of three digits and, behind a blank, text for people.

// Whether a line begins with the code and the separator: ' ' on the last line of a reply, '-' where more follow.
[[nodiscard]] bool HasReplyCode(std::string_view line, int code, char separator);

// The port of "227 Entering Passive Mode (h1,h2,h3,h4,p1,p2)". None if it is 0 or not there.
[[nodiscard]] std::optional<std::uint32_t> ReadPassivePort(std::string_view line);

// The number right behind the code, as in "213 4096".
[[nodiscard]] std::optional<std::uint64_t> ReadReplyNumber(std::string_view line);

}  // namespace morvex
