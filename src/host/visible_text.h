#pragma once

#include <string>
#include <string_view>

namespace morvex::host {

// Texts of assets, packages and peers may hold any bytes.

// The text as it can be shown: control characters, the marks that turn the direction of writing, and bytes that are
// no UTF-8 are written out, as in "\n", "\x1B" and "\u{202E}". No text can move the cursor or break a line.
std::string VisibleText(std::string_view text);

// The text as well-formed UTF-8: each malformed sequence becomes U+FFFD.
std::string ValidUtf8(std::string_view text);

}  // namespace morvex::host
