#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

namespace Nox {

// printf-style expansion of patterns that may come from data files. The arguments know their types, so no
// pattern can read or write memory that isn't meant for it.
//
// Placeholders: %s for texts; %d %i %u %x %X %c for integers; %f %e %g and their capitals for floating point;
// %% for a percent sign. Flags, width and precision are as in C, width and precision at most 1000; length
// letters (h, l, ...) are read over, for an argument knows its width. Each placeholder takes the
// next argument. One that has none, or one of another kind, stays in the text as it is, and so does anything
// else behind a percent sign ("%n", "%p", "%*d").

// One argument. Holds a view of a text, which must live as long as the call.
class FormatArg {
 public:
  enum class Kind : std::uint8_t { kText, kSigned, kUnsigned, kFloat };

  template <typename T>
  requires std::convertible_to<const T&, std::string_view> FormatArg(const T& text)
      : kind_(Kind::kText), text_(text) {}
  FormatArg(const char* text) : kind_(Kind::kText), text_(text == nullptr ? "" : text) {}

  template <std::integral T>
  FormatArg(T value)
      : kind_(std::is_signed_v<T> ? Kind::kSigned : Kind::kUnsigned),
        bytes_(sizeof(T)),
        integer_(static_cast<std::uint64_t>(value)) {}

  FormatArg(double value) : kind_(Kind::kFloat), float_(value) {}
  FormatArg(float value) : FormatArg(static_cast<double>(value)) {}

  bool IsText() const { return kind_ == Kind::kText; }
  bool IsInteger() const { return kind_ == Kind::kSigned || kind_ == Kind::kUnsigned; }
  bool IsFloat() const { return kind_ == Kind::kFloat; }

  std::string_view Text() const { return text_; }
  double Float() const { return float_; }
  // The argument's bits as C reads them for %d and for %u: at the argument's own width, at least an int's.
  std::int64_t Signed() const;
  std::uint64_t Unsigned() const;

 private:
  static constexpr std::uint8_t kPromoted = sizeof(int);

  Kind kind_;
  std::uint8_t bytes_ = 0;
  std::uint64_t integer_ = 0;
  double float_ = 0;
  std::string_view text_;
};

void AppendFormatList(std::string& out, std::string_view pattern, std::initializer_list<FormatArg> args);

template <typename... Args>
void AppendFormat(std::string& out, std::string_view pattern, const Args&... args) {
  AppendFormatList(out, pattern, {FormatArg(args)...});
}

template <typename... Args>
[[nodiscard]] std::string FormatText(std::string_view pattern, const Args&... args) {
  std::string out;
  AppendFormatList(out, pattern, {FormatArg(args)...});
  return out;
}

}  // namespace Nox
