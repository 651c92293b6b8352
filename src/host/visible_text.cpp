#include "host/visible_text.h"

#include <cstddef>
#include <cstdint>

#include "engine/format.h"

namespace morvex::host {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// One character of a text, or a piece that is none.
struct Character {
  uint32_t code = 0;
  size_t size = 0;  // bytes
  bool isValid = false;
};

// What a first byte announces: how many bytes follow, and the range that the second must lie in, which keeps out
// overlong forms, surrogates and what lies beyond U+10FFFF.
struct Lead {
  uint8_t following;
  uint8_t least;
  uint8_t most;
};

constexpr Lead LeadOf(uint8_t byte) {
  if (byte >= 0xC2 && byte <= 0xDF) return {1, 0x80, 0xBF};
  if (byte == 0xE0) return {2, 0xA0, 0xBF};
  if (byte == 0xED) return {2, 0x80, 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {2, 0x80, 0xBF};
  if (byte == 0xF0) return {3, 0x90, 0xBF};
  if (byte >= 0xF1 && byte <= 0xF3) return {3, 0x80, 0xBF};
  if (byte == 0xF4) return {3, 0x80, 0x8F};
  return {0, 0, 0};
}

// The first character of a text that isn't empty. A malformed one is as long as what could have begun one.
Character FirstOf(std::string_view text) {
  const auto first = static_cast<uint8_t>(text[0]);
  if (first < 0x80) return {first, 1, true};
  Lead lead = LeadOf(first);
  if (lead.following == 0) return {0, 1, false};
  uint32_t code = first & (0x3FU >> lead.following);
  size_t size = 1;
  for (; lead.following > 0; --lead.following) {
    if (size == text.size()) return {0, size, false};
    const auto byte = static_cast<uint8_t>(text[size]);
    if (byte < lead.least || byte > lead.most) return {0, size, false};
    code = code << 6 | (byte & 0x3FU);
    lead.least = 0x80;
    lead.most = 0xBF;
    ++size;
  }
  return {code, size, true};
}

bool IsControl(uint32_t code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

// Marks that reorder or hide what is shown beside them.
bool IsDirectionMark(uint32_t code) {
  return (code >= 0x200E && code <= 0x200F) || (code >= 0x2028 && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

void AppendEscape(std::string& out, uint32_t code) {
  switch (code) {
    case '\n':
      out += "\\n";
      return;
    case '\r':
      out += "\\r";
      return;
    case '\t':
      out += "\\t";
      return;
    default:
      Nox::AppendFormat(out, code < 0x80 ? "\\x%02X" : "\\u{%X}", code);
  }
}

}  // namespace

std::string VisibleText(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const Character character = FirstOf(text);
    if (!character.isValid) {
      for (const char byte : text.substr(0, character.size))
        Nox::AppendFormat(out, "\\x%02X", static_cast<uint8_t>(byte));
    } else if (IsControl(character.code) || IsDirectionMark(character.code)) {
      AppendEscape(out, character.code);
    } else {
      out += text.substr(0, character.size);
    }
    text.remove_prefix(character.size);
  }
  return out;
}

std::string ValidUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const Character character = FirstOf(text);
    out += character.isValid ? text.substr(0, character.size) : kReplacement;
    text.remove_prefix(character.size);
  }
  return out;
}

}  // namespace morvex::host
