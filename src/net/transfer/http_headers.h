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

// What the headers of one answer say. The lines that count are a table in http_headers.cpp.
struct HTTPResponse {
  HTTPStatus status = HTTPStatus::kFailed;
  int code = 0;  // the number of the status line
  std::string location;
  std::string transferEncoding;
  std::optional<std::uint64_t> contentLength;
  bool closes = false;     // the peer will close the connection
  bool malformed = false;  // it can't be told where the body ends
  std::string cookie;      // of the last line taken: the value of Set-Cookie, else empty

  // Takes one line, without its end. Lines of no interest are passed over.
  void TakeLine(std::string_view line);

  // An answer of class 1, behind which the real one comes.
  [[nodiscard]] bool IsInterim() const { return code >= 100 && code < 200; }
};

}  // namespace morvex
