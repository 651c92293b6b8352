#include "net/transfer/http_headers.h"

#include <charconv>

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
