#include "engine/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>

namespace Nox {
namespace {

constexpr int kMaxField = 1000;

// What stands between a percent sign and the letter of its kind.
struct Placeholder {
  bool left = false;
  bool plus = false;
  bool blank = false;
  bool zeros = false;
  bool alternate = false;
  int width = 0;
  int precision = -1;  // none given
  char kind = 0;
};

bool TakeFlag(char c, Placeholder& field) {
  switch (c) {
    case '-':
      return field.left = true;
    case '+':
      return field.plus = true;
    case ' ':
      return field.blank = true;
    case '0':
      return field.zeros = true;
    case '#':
      return field.alternate = true;
    default:
      return false;
  }
}

int TakeNumber(std::string_view& text) {
  int number = 0;
  while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
    number = std::min(number * 10 + (text.front() - '0'), kMaxField);
    text.remove_prefix(1);
  }
  return number;
}

// Reads what stands behind a percent sign and moves `text` behind it; none if it isn't a placeholder.
std::optional<Placeholder> TakePlaceholder(std::string_view& text) {
  Placeholder field;
  while (!text.empty() && TakeFlag(text.front(), field))
    text.remove_prefix(1);
  field.width = TakeNumber(text);
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    field.precision = TakeNumber(text);
  }
  while (!text.empty() && std::string_view("hlqjztL").find(text.front()) != std::string_view::npos) {
    text.remove_prefix(1);
  }
  if (text.empty() || std::string_view("sdiuxXcfFeEgG").find(text.front()) == std::string_view::npos) {
    return std::nullopt;
  }
  field.kind = text.front();
  text.remove_prefix(1);
  return field;
}

// Writes sign and body into the field's width; zeros go between the two.
void AppendField(std::string& out, const Placeholder& field, std::string_view sign, std::string_view body) {
  const std::size_t length = sign.size() + body.size();
  const auto width = static_cast<std::size_t>(field.width);
  const std::size_t padding = width > length ? width - length : 0;
  const bool zeros = field.zeros && !field.left;
  if (!zeros && !field.left) out.append(padding, ' ');
  out.append(sign);
  if (zeros) out.append(padding, '0');
  out.append(body);
  if (field.left) out.append(padding, ' ');
}

std::string_view SignOf(const Placeholder& field, bool negative) {
  return negative ? "-" : field.plus ? "+" : field.blank ? " " : "";
}

void Capitalise(char* begin, const char* end) {
  for (char* c = begin; c != end; ++c) {
    if (*c >= 'a' && *c <= 'z') *c = static_cast<char>(*c - ('a' - 'A'));
  }
}

void AppendInteger(std::string& out, Placeholder field, const FormatArg& arg) {
  if (field.kind == 'c') {
    const char byte = static_cast<char>(arg.Unsigned());
    field.zeros = false;
    return AppendField(out, field, "", std::string_view(&byte, 1));
  }
  const bool isSigned = field.kind == 'd' || field.kind == 'i';
  const bool isHex = field.kind == 'x' || field.kind == 'X';
  const bool negative = isSigned && arg.Signed() < 0;
  const auto bits = isSigned ? static_cast<std::uint64_t>(arg.Signed()) : arg.Unsigned();
  const std::uint64_t magnitude = negative ? 0 - bits : bits;

  std::array<char, 24> buffer;
  char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, isHex ? 16 : 10).ptr;
  if (field.kind == 'X') Capitalise(buffer.data(), end);
  std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));

  std::string filled;
  if (field.precision >= 0) {
    field.zeros = false;
    if (magnitude == 0) digits = {};
    const auto wanted = static_cast<std::size_t>(field.precision);
    if (wanted > digits.size()) digits = filled.assign(wanted - digits.size(), '0').append(digits);
  }
  std::string_view sign = isSigned ? SignOf(field, negative) : "";
  if (isHex && field.alternate && magnitude != 0) sign = field.kind == 'x' ? "0x" : "0X";
  AppendField(out, field, sign, digits);
}

void AppendFloat(std::string& out, Placeholder field, double value) {
  const bool capital = field.kind >= 'A' && field.kind <= 'Z';
  const char kind = capital ? static_cast<char>(field.kind + ('a' - 'A')) : field.kind;
  const auto form = kind == 'f'   ? std::chars_format::fixed
                    : kind == 'e' ? std::chars_format::scientific
                                  : std::chars_format::general;
  std::array<char, kMaxField + 400> buffer;  // the largest double has 309 digits before its point
  char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value), form,
                            field.precision < 0 ? 6 : field.precision)
                  .ptr;
  if (capital) Capitalise(buffer.data(), end);
  if (!std::isfinite(value)) field.zeros = false;
  AppendField(out, field, SignOf(field, std::signbit(value)),
              std::string_view(buffer.data(), static_cast<std::size_t>(end - buffer.data())));
}

// False, and nothing is written, if the argument is of another kind.
bool AppendArg(std::string& out, Placeholder field, const FormatArg& arg) {
  if (field.kind == 's') {
    if (!arg.IsText()) return false;
    field.zeros = false;
    AppendField(out, field, "", arg.Text().substr(0, static_cast<std::size_t>(field.precision)));
    return true;
  }
  if (std::string_view("diuxXc").find(field.kind) != std::string_view::npos) {
    if (!arg.IsInteger()) return false;
    AppendInteger(out, field, arg);
    return true;
  }
  if (!arg.IsFloat()) return false;
  AppendFloat(out, field, arg.Float());
  return true;
}

}  // namespace

std::uint64_t FormatArg::Unsigned() const {
  return bytes_ >= 8 ? integer_ : integer_ & ((std::uint64_t{1} << (8 * std::max(bytes_, kPromoted))) - 1);
}

std::int64_t FormatArg::Signed() const {
  const int unused = 64 - 8 * std::max(bytes_, kPromoted);
  return static_cast<std::int64_t>(integer_ << unused) >> unused;
}

void AppendFormatList(std::string& out, std::string_view pattern, std::initializer_list<FormatArg> args) {
  auto arg = args.begin();
  while (!pattern.empty()) {
    const std::size_t percent = std::min(pattern.find('%'), pattern.size());
    out.append(pattern.substr(0, percent));
    pattern.remove_prefix(percent);
    if (pattern.empty()) return;

    std::string_view rest = pattern.substr(1);
    if (rest.starts_with('%')) {
      out.push_back('%');
      pattern = rest.substr(1);
      continue;
    }
    const std::optional<Placeholder> field = TakePlaceholder(rest);
    const bool done = field && arg != args.end() && AppendArg(out, *field, *arg);
    if (field && arg != args.end()) ++arg;
    if (!field) rest = pattern.substr(1);
    if (!done) out.append(pattern.substr(0, pattern.size() - rest.size()));
    pattern = rest;
  }
}

}  // namespace Nox
