#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace morvex {

// The bytes that mean something in a text of soup. Sets of them are sums.
enum TextBytes : uint16_t {
  kBlanks = 1,  // space and tab
  kLineEnds = 2,
  kNul = 4,
  kBrace = 8,  // the closing one
  kQuote = 16,
  kDigits = 32,
  kPoint = 64,
  kMinus = 128,
  kComma = 256,
};

inline constexpr std::array<uint16_t, 256> kTextByteTable = [] {
  std::array<uint16_t, 256> table{};
  table[' '] = table['\t'] = kBlanks;
  table['\r'] = table['\n'] = kLineEnds;
  table['\0'] = kNul;
  table['}'] = kBrace;
  table['"'] = kQuote;
  for (char digit = '0'; digit <= '9'; ++digit)
    table[static_cast<uint8_t>(digit)] = kDigits;
  table['.'] = kPoint;
  table['-'] = kMinus;
  table[','] = kComma;
  return table;
}();

// Walks a text of soup byte by byte. The end of the text reads as a NUL, and so a NUL in the text ends what
// is being read in the same way. Never moves past the end.
class TextCursor {
 public:
  explicit TextCursor(std::string_view text)
      : start_(text.data()), at_(text.data()), end_(text.data() + text.size()) {}

  static bool Is(char c, int bytes) { return (kTextByteTable[static_cast<uint8_t>(c)] & bytes) != 0; }

  char Peek() const { return at_ != end_ ? *at_ : '\0'; }
  bool Sees(int bytes) const { return Is(Peek(), bytes); }
  void Advance() { at_ += at_ != end_; }
  bool Accept(char c) {
    if (at_ == end_ || *at_ != c) return false;
    ++at_;
    return true;
  }
  bool AcceptText(std::string_view expected) {
    if (!std::string_view(at_, static_cast<size_t>(end_ - at_)).starts_with(expected)) return false;
    at_ += expected.size();
    return true;
  }

  // Passes bytes of the set, or bytes outside it, at most to the end, and gives them.
  std::string_view While(int bytes) {
    const char* const from = at_;
    const char* at = at_;
    while (at != end_ && Is(*at, bytes))
      ++at;
    at_ = at;
    return {from, static_cast<size_t>(at - from)};
  }
  std::string_view Until(int bytes) {
    const char* const from = at_;
    const char* at = at_;
    while (at != end_ && !Is(*at, bytes))
      ++at;
    at_ = at;
    return {from, static_cast<size_t>(at - from)};
  }

  // The same up to one byte or a NUL; for long ways.
  std::string_view UpTo(char stop) {
    std::string_view rest(at_, static_cast<size_t>(end_ - at_));
    rest = rest.substr(0, rest.find(stop));
    rest = rest.substr(0, rest.find('\0'));
    at_ += rest.size();
    return rest;
  }

  size_t Position() const { return static_cast<size_t>(at_ - start_); }
  void Return(size_t position) { at_ = start_ + position; }

 private:
  const char* start_;
  const char* at_;
  const char* end_;
};

}  // namespace morvex
