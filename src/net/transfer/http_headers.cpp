#include "net/transfer/http_headers.h"

#include <algorithm>
#include <charconv>

#include "engine/text.h"
#include "tagdata/text_match.h"

namespace morvex {
namespace {

void TakeStatus(HTTPResponse& response, HTTPStatus status, std::string_view line) {
  constexpr std::size_t kNumberAt = std::string_view("HTTP/1.1 ").size();
  response.status = status;
  response.code = 0;
  const std::string_view number = line.substr(kNumberAt, 3);
  std::from_chars(number.data(), number.data() + number.size(), response.code);
}

// Where the length is no number, or two lines disagree about it, nobody can tell where the body ends.
void TakeLength(HTTPResponse& response, std::string_view value) {
  std::uint64_t length = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), length);
  const bool good = error == std::errc() && response.contentLength.value_or(length) == length;
  response.malformed = response.malformed || !good;
  response.contentLength = length;
}

// A number, and what must stand behind it; takes both off the text.
bool TakeNumber(std::string_view& text, std::string_view behind, std::uint64_t& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (error != std::errc() || !text.starts_with(behind)) return false;
  text.remove_prefix(behind.size());
  return true;
}

// "5-9/10": the bytes from 5 to 9 of 10. A file whose size isn't told ("*") could never be known to be whole.
void TakeRange(HTTPResponse& response, std::string_view value) {
  ContentRange range;
  response.range.reset();
  if (TakeNumber(value, "-", range.first) && TakeNumber(value, "/", range.last) &&
      TakeNumber(value, "", range.total) && range.first <= range.last && range.last < range.total)
    response.range = range;
}

// What a peer says of its file's version is sent back to it as it stands, so it must be a text that can be.
std::string PlainText(std::string_view value) {
  value = Nox::Trim(value);
  const bool isPlain =
      std::none_of(value.begin(), value.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; });
  return std::string(isPlain ? value : "");
}

// A weak tag ("W/...") stands for files that mean the same, but may differ in their bytes.
void TakeEntityTag(HTTPResponse& response, std::string_view value) {
  const std::string tag = PlainText(value);
  const bool isStrong = tag.size() > 2 && tag.starts_with('"') && tag.ends_with('"');
  response.entityTag = isStrong ? tag : "";
}

using Take = void (*)(HTTPResponse& response, std::string_view line, std::string_view value);

struct HeaderLine {
  std::string_view pattern;  // a '?' is any character, letters count in both cases
  Take take;                 // gets the whole line, and what stands behind the pattern
};

// The first that fits is taken.
constexpr HeaderLine kLines[] = {
    {"HTTP/?.? 1??", [](auto& r, auto line, auto) { TakeStatus(r, HTTPStatus::kFailed, line); }},
    {"HTTP/?.? 2?? ", [](auto& r, auto line, auto) { TakeStatus(r, HTTPStatus::kSuccess, line); }},
    {"HTTP/?.? 3?? ", [](auto& r, auto line, auto) { TakeStatus(r, HTTPStatus::kRedirect, line); }},
    {"HTTP/?.? 4?? ", [](auto& r, auto line, auto) { TakeStatus(r, HTTPStatus::kFailed, line); }},
    {"HTTP/?.? 5?? ", [](auto& r, auto line, auto) { TakeStatus(r, HTTPStatus::kFailed, line); }},
    {"Set-Cookie: ", [](auto& r, auto, auto value) { r.cookie = value; }},
    {"Location: ", [](auto& r, auto, auto value) { r.location = value; }},
    {"Transfer-Encoding: ", [](auto& r, auto, auto value) { r.transferEncoding = value; }},
    {"Content-Length: ", [](auto& r, auto, auto value) { TakeLength(r, value); }},
    {"Content-Range: bytes ", [](auto& r, auto, auto value) { TakeRange(r, value); }},
    {"ETag: ", [](auto& r, auto, auto value) { TakeEntityTag(r, value); }},
    {"Last-Modified: ", [](auto& r, auto, auto value) { r.lastModified = PlainText(value); }},
    {"Proxy-Connection: close", [](auto& r, auto, auto) { r.closes = true; }},
    {"Connection: close", [](auto& r, auto, auto) { r.closes = true; }},
};

}  // namespace

void HTTPResponse::TakeLine(std::string_view line) {
  cookie.clear();
  for (const HeaderLine& known : kLines) {
    if (!MatchPattern(line, known.pattern, true)) continue;
    known.take(*this, line, line.substr(known.pattern.size()));
    return;
  }
}

}  // namespace morvex
