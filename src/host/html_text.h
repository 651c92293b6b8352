#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace morvex::host {

// The text as it stands in HTML and SVG, in elements and in quoted attributes. Malformed UTF-8 is replaced, and so
// are the control characters that neither form may hold.
std::string HtmlText(std::string_view text);

// The first `most` characters, with an ellipsis for what is left out.
std::string Shortened(std::string_view text, size_t most);

std::string Base64(std::span<const uint8_t> bytes);

}  // namespace morvex::host
