#include "engine/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "engine/text.h"

namespace Nox {
namespace {

// The value of a decimal digit; 10 or more for any other byte.
unsigned DigitOf(char c) {
  return static_cast<unsigned char>(c - '0');
}

bool IsDigit(char c) {
  return DigitOf(c) < 10;
}

void SkipBlanks(std::string_view& text) {
  while (!text.empty() && IsBlank(text.front()))
    text.remove_prefix(1);
}

// Takes a sign off the text; true for a minus.
bool TakeSign(std::string_view& text) {
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
  const bool minus = text.front() == '-';
  text.remove_prefix(1);
  return minus;
}

// Takes decimal digits off the text; their value, at most `limit`. False without a digit.
bool TakeDigits(std::string_view& text, std::uint64_t limit, std::uint64_t& value) {
  constexpr std::size_t kAlwaysFits = 18;  // so many digits in 64 bits
  std::uint64_t number = 0;
  std::size_t length = 0;
  const std::size_t easy = std::min(text.size(), kAlwaysFits);
  while (length < easy && IsDigit(text[length]))
    number = number * 10 + DigitOf(text[length++]);
  if (length == 0) return false;
  for (; length < text.size() && IsDigit(text[length]); ++length) {
    if (number <= limit) number = number * 10 + DigitOf(text[length]);
  }
  value = std::min(number, limit);
  text.remove_prefix(length);
  return true;
}

// A number that no double can hold, by its digits: true if it is too large, false if too small.
bool IsHuge(std::string_view digits) {
  const std::size_t exponentMark = digits.find_first_of("eE");
  const std::string_view mantissa = digits.substr(0, exponentMark);
  const std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return false;
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const auto magnitude = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);

  std::uint64_t exponent = 0;
  bool minus = false;
  if (exponentMark != std::string_view::npos) {
    std::string_view rest = digits.substr(exponentMark + 1);
    minus = TakeSign(rest);
    if (!TakeDigits(rest, std::uint64_t{1} << 60, exponent)) exponent = 0;
  }
  const auto shift = static_cast<std::int64_t>(exponent);
  return magnitude + (minus ? -shift : shift) > 0;
}

// The value of a number that is out of a float's range but perhaps not of a double's.
float OutOfRange(std::string_view digits) {
  double wide = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), wide);
  const bool huge = result.ec == std::errc() ? wide > 1 : IsHuge(digits);
  if (huge) return std::numeric_limits<float>::infinity();
  return result.ec == std::errc() ? static_cast<float>(wide) : 0.0F;
}

template <typename... Format>
std::string Print(float value, Format... format) {
  std::array<char, 256> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...);
  return std::string(buffer.data(), result.ptr);
}

}  // namespace

bool ScanInt(std::string_view& text, std::int32_t& value) {
  std::string_view rest = text;
  SkipBlanks(rest);
  const bool minus = TakeSign(rest);
  std::uint64_t magnitude = 0;
  if (!TakeDigits(rest, minus ? 0x80000000U : 0x7FFFFFFFU, magnitude)) return false;
  const auto wide = static_cast<std::int64_t>(magnitude);
  value = static_cast<std::int32_t>(minus ? -wide : wide);
  text = rest;
  return true;
}

bool ScanUnsigned(std::string_view& text, std::uint32_t& value) {
  std::string_view rest = text;
  SkipBlanks(rest);
  if (!rest.empty() && rest.front() == '+') rest.remove_prefix(1);
  std::uint64_t magnitude = 0;
  if (!TakeDigits(rest, 0xFFFFFFFFU, magnitude)) return false;
  value = static_cast<std::uint32_t>(magnitude);
  text = rest;
  return true;
}

bool ScanFloat(std::string_view& text, float& value) {
  std::string_view rest = text;
  SkipBlanks(rest);
  const bool minus = TakeSign(rest);
  const std::size_t firstDigit = rest.starts_with('.') ? 1 : 0;
  if (rest.size() <= firstDigit || !IsDigit(rest[firstDigit])) return false;

  float magnitude = 0;
  const auto result = std::from_chars(rest.data(), rest.data() + rest.size(), magnitude);
  const auto length = static_cast<std::size_t>(result.ptr - rest.data());
  if (result.ec != std::errc()) magnitude = OutOfRange(rest.substr(0, length));
  value = minus ? -magnitude : magnitude;
  text = rest.substr(length);
  return true;
}

std::int32_t ReadInt(std::string_view text) {
  std::int32_t value = 0;
  return ScanInt(text, value) ? value : 0;
}

float ReadFloat(std::string_view text) {
  float value = 0;
  return ScanFloat(text, value) ? value : 0;
}

std::string FormatFloat(float value, int decimals) {
  return Print(value, std::chars_format::fixed, std::clamp(decimals, 0, 100));
}

std::string ShortestFloat(float value) {
  return Print(value);
}

}  // namespace Nox
