#pragma once

#include <string>
#include <string_view>

namespace morvex {

// A name that is safe for a file: every byte but ASCII letters, digits, '_' and the blank becomes '_', and
// blanks at the end go.
std::string SanitiseFileName(std::string_view text);

}  // namespace morvex
