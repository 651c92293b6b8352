#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace morvex {

// How a request went.
enum class HTTPStatus {
  kSuccess = 0,     // a status line of class 2
  kRedirect = 1,    // of class 3
  kFailed = 2,      // of class 4 or 5, or none yet
  kNoResponse = 3,  // not even a first line could be read
};

// Numbers of status lines that say more than their class.
inline constexpr int kPartialContent = 206;
inline constexpr int kRangeNotSatisfiable = 416;

// Which bytes of a file an answer brings, and how many the file has.
struct ContentRange {
  std::uint64_t first = 0;
  std::uint64_t last = 0;
  std::uint64_t total = 0;
};

// What the headers of one answer say. The lines that count are a table in http_headers.cpp.
struct HTTPResponse {
  HTTPStatus status = HTTPStatus::kFailed;
  int code = 0;  // the number of the status line
  std::string location;
  std::string transferEncoding;
  std::optional<std::uint64_t> contentLength;
  std::optional<ContentRange> range;
  std::string entityTag;     // a strong one: byte for byte the same file
  std::string lastModified;  // the day and time as the peer writes them
  bool closes = false;       // the peer will close the connection
  bool malformed = false;    // it can't be told where the body ends
  std::string cookie;        // of the last line taken: the value of Set-Cookie, else empty

  // Takes one line, without its end. Lines of no interest are passed over.
  void TakeLine(std::string_view line);

  // What tells this version of the file from others; empty if the peer doesn't say.
  [[nodiscard]] const std::string& Version() const { return entityTag.empty() ? lastModified : entityTag; }

  // An answer of class 1, behind which the real one comes.
  [[nodiscard]] bool IsInterim() const { return code >= 100 && code < 200; }
};

}  // namespace morvex
