#include "host/html_text.h"

#include <algorithm>

#include "host/visible_text.h"

namespace morvex::host {

namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr bool IsContinuation(char c) {
  return (static_cast<uint8_t>(c) & 0xC0U) == 0x80;
}

}  // namespace

std::string HtmlText(std::string_view text) {
  std::string out;
  for (const char c : ValidUtf8(text)) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\'':
        out += "&#39;";
        break;
      default:
        out += static_cast<uint8_t>(c) < 0x20 && c != '\n' && c != '\t' ? ' ' : c;
    }
  }
  return out;
}

std::string Shortened(std::string_view text, size_t most) {
  const std::string valid = ValidUtf8(text);
  size_t count = 0;
  for (size_t i = 0; i < valid.size(); ++i) {
    if (IsContinuation(valid[i])) continue;
    if (count++ == most) return valid.substr(0, i) + "\xE2\x80\xA6";
  }
  return valid;
}

std::string Base64(std::span<const uint8_t> bytes) {
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (size_t i = 0; i < bytes.size(); i += 3) {
    const size_t count = std::min<size_t>(3, bytes.size() - i);
    uint32_t word = 0;
    for (size_t k = 0; k < 3; ++k)
      word = word << 8 | (k < count ? bytes[i + k] : 0U);
    for (size_t k = 0; k < 4; ++k)
      out += k <= count ? kDigits[word >> (18 - 6 * k) & 63U] : '=';
  }
  return out;
}

}  // namespace morvex::host
