#include "tagdata/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace morvex {
namespace {

// Bytes 80 to 9F; all other bytes are the character of the same number. The five bytes that the code page
// leaves undefined are the control characters of their number.
constexpr std::array<uint16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr uint8_t kFirstHighControl = 0x80;
constexpr uint8_t kFirstLatin = 0xA0;

uint32_t CharacterOf(uint8_t byte) {
  return byte >= kFirstHighControl && byte < kFirstLatin ? kHighControls[byte - kFirstHighControl] : byte;
}

char ByteOf(uint32_t character) {
  if (character < kFirstHighControl || (character >= kFirstLatin && character <= 0xFF))
    return static_cast<char>(character);
  const auto found = std::find(kHighControls.begin(), kHighControls.end(), character);
  if (found == kHighControls.end()) return '?';
  return static_cast<char>(kFirstHighControl + (found - kHighControls.begin()));
}

// No character of the code page needs more than three bytes.
void AppendUtf8(std::string& text, uint32_t character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
    return;
  }
  if (character < 0x800) {
    text += static_cast<char>(0xC0 | character >> 6);
  } else {
    text += static_cast<char>(0xE0 | character >> 12);
    text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
  }
  text += static_cast<char>(0x80 | (character & 0x3F));
}

// How many bytes the sequence that begins with `first` has, or 0 if none begins so.
size_t SequenceLength(uint8_t first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

// Takes the next character off the front of `text`. None if it is malformed, overlong or a surrogate.
std::optional<uint32_t> TakeUtf8(std::string_view& text) {
  const auto first = static_cast<uint8_t>(text[0]);
  const size_t length = SequenceLength(first);
  if (length == 0 || length > text.size()) return std::nullopt;
  uint32_t character = length == 1 ? first : first & (0xFFu >> (length + 1));
  for (size_t i = 1; i < length; ++i) {
    const auto next = static_cast<uint8_t>(text[i]);
    if ((next & 0xC0) != 0x80) return std::nullopt;
    character = character << 6 | (next & 0x3F);
  }
  const bool overlong = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (overlong || surrogate || character > 0x10FFFF) return std::nullopt;
  text.remove_prefix(length);
  return character;
}

// The text of a buffer, or none if no NUL ends it.
std::optional<std::string_view> TextOf(const char* buffer, size_t capacity) {
  const void* end = capacity == 0 ? nullptr : std::memchr(buffer, 0, capacity);
  if (end == nullptr) return std::nullopt;
  return std::string_view(buffer, static_cast<size_t>(static_cast<const char*>(end) - buffer));
}

std::ptrdiff_t Fail(char* buffer, size_t capacity) {
  for (size_t i = 0; i < capacity && buffer[i] != 0; ++i)
    if (static_cast<uint8_t>(buffer[i]) >= 0x80) buffer[i] = '?';
  return -1;
}

std::ptrdiff_t Replace(char* buffer, size_t capacity, const std::string& text) {
  const size_t needed = text.size() + 1;
  if (needed > capacity) return static_cast<std::ptrdiff_t>(needed);
  std::memcpy(buffer, text.c_str(), needed);
  return 0;
}

}  // namespace

std::string AnsiAsUtf8(std::string_view ansi) {
  std::string text;
  text.reserve(ansi.size() + ansi.size() / 8);
  for (const char byte : ansi)
    AppendUtf8(text, CharacterOf(static_cast<uint8_t>(byte)));
  return text;
}

std::optional<std::string> Utf8AsAnsi(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::optional<uint32_t> character = TakeUtf8(utf8);
    if (!character) return std::nullopt;
    text += ByteOf(*character);
  }
  return text;
}

std::ptrdiff_t AnsiToUtf8(char* buffer, size_t capacity) {
  const std::optional<std::string_view> text = TextOf(buffer, capacity);
  return text ? Replace(buffer, capacity, AnsiAsUtf8(*text)) : Fail(buffer, capacity);
}

std::ptrdiff_t Utf8ToAnsi(char* buffer, size_t capacity) {
  const std::optional<std::string_view> text = TextOf(buffer, capacity);
  const std::optional<std::string> ansi = text ? Utf8AsAnsi(*text) : std::nullopt;
  return ansi ? Replace(buffer, capacity, *ansi) : Fail(buffer, capacity);
}

}  // namespace morvex
