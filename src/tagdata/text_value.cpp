#include "tagdata/text_value.h"

namespace morvex {
namespace {

constexpr int kLineStops = kLineEnds | kNul;

// One number alone on the line.
TextValue ClassifyNumber(TextCursor& in) {
  in.Accept('-');
  in.While(kDigits);
  TextValue value = TextValue::kInt;
  if (in.Sees(kPoint)) {
    value = TextValue::kFloat;
    in.While(kDigits | kPoint);
  }
  in.While(kBlanks);
  return in.Sees(kLineStops) ? value : TextValue::kNone;
}

TextValue ClassifyNumberOrString(TextCursor& in) {
  const size_t value = in.Position();
  if (in.Sees(kDigits | kMinus | kPoint)) {
    const TextValue number = ClassifyNumber(in);
    if (number != TextValue::kNone) return number;
  }
  in.Return(value);
  in.While(kDigits | kMinus | kPoint | kComma | kBlanks);
  return in.Sees(kLineStops) ? TextValue::kFloatList : TextValue::kString;
}

// "\n" stands for a line end, but not at the very start.
std::string_view ReadUnquoted(TextCursor& in, std::string& buffer) {
  std::string_view text = in.Until(kLineStops | kBrace);
  if (in.Sees(kNul)) in.Advance();
  size_t escape = text.find("\\n", 1);
  if (escape == std::string_view::npos) return text;
  buffer.clear();
  while (escape != std::string_view::npos) {
    buffer.append(text.substr(0, escape)).append("\r\n");
    text.remove_prefix(escape + 2);
    escape = text.find("\\n");
  }
  buffer.append(text);
  return buffer;
}

// Any line end becomes CR LF. The two different line end bytes in a row are one line end.
std::string_view WithLineEnds(std::string_view text, std::string& buffer) {
  TextCursor lines(text);
  buffer = lines.Until(kLineEnds);
  while (lines.Sees(kLineEnds)) {
    const char other = lines.Peek() == '\r' ? '\n' : '\r';
    lines.Advance();
    lines.Accept(other);
    buffer.append("\r\n").append(lines.Until(kLineEnds));
  }
  return buffer;
}

// Long texts are searched many bytes at a time, so byte by byte only where there is something to change.
std::string_view ReadQuoted(TextCursor& in, std::string& buffer) {
  const std::string_view text = in.UpTo('"');
  in.Advance();
  const bool oneLine = text.find('\n') == text.npos && text.find('\r') == text.npos;
  return oneLine ? text : WithLineEnds(text, buffer);
}

}  // namespace

TextValue ClassifyValue(TextCursor& in) {
  const size_t behindKey = in.Position();
  in.While(kBlanks);
  const bool lineEnded = in.Sees(kLineEnds);
  if (lineEnded) in.While(kBlanks | kLineEnds);
  if (in.Accept('{')) return TextValue::kSoup;
  if (lineEnded || in.Sees(kNul | kBrace)) {
    in.Return(behindKey);
    return TextValue::kNone;
  }
  if (in.Sees(kQuote)) return TextValue::kString;
  const size_t value = in.Position();
  const TextValue kind = ClassifyNumberOrString(in);
  in.Return(value);
  return kind;
}

std::string_view ReadShortText(TextCursor& in, size_t limit) {
  const std::string_view text = in.Until(kLineStops | kBrace);
  if (in.Sees(kNul)) in.Advance();
  return text.substr(0, limit);
}

std::string_view ReadStringValue(TextCursor& in, std::string& buffer) {
  return in.Accept('"') ? ReadQuoted(in, buffer) : ReadUnquoted(in, buffer);
}

}  // namespace morvex
