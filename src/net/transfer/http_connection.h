#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "net/transfer/cookie_jar.h"
#include "net/transfer/http_headers.h"
#include "net/transfer/net_connection.h"
#include "tagdata/tag_container.h"

namespace morvex {

class BodyFile;
struct URL;

// A client of HTTP/1.1: one GET or one multipart POST at a time, then the headers of the answer, then its body,
// which goes into a file. Keeps the cookies of its host; SetHost comes before the first request.
//
// An answer that is cut, by the peer or because it says too much, leaves kReadFailed in ErrorCode.
class HTTPConnection : public NetConnection, public HTTPCookieJar {
 public:
  // A GET of the path that `format` expands to; of "<scheme>://<host><path>" if a scheme is given, where "https"
  // is written as "http". A finished text goes as an argument of "%s". Requests do nothing on a connection that
  // can't be used, or if a name or path holds a line end; ReadResponseHeaders then gives kNoResponse.
  template <typename... Args>
  void SendGet(const char* scheme, std::string_view format, const Args&... args) {
    SendGetOf(scheme, Nox::FormatText(format, args...));
  }
  // A GET of what is behind the first `offset` bytes of a file that is of this version, or of the whole of another.
  // BringsRest tells which of them the answer is.
  void SendGetRest(const std::string& path, std::uint64_t offset, std::string_view version);
  // A POST of a form to the URL's path and query. A tag that is a container with `filedata` and `filename` goes as
  // a file, any other as its text. The whole form is in memory for the time.
  void SendPost(const URL& url, const TagContainer& form);

  // Reads to the end of the headers, passing over interim answers. True for success and redirects.
  [[nodiscard]] bool ReadResponseHeaders();
  // Reads the body into a new file under this name; with an offset, behind that many bytes of the one that is there.
  // True if it is complete and not empty. Otherwise what arrived stays in the file.
  [[nodiscard]] bool ReadBody(std::string_view fileName, std::uint64_t offset = 0);
  // Passes over a body that nobody wants. One that is long, or ends with the connection, ends the connection.
  void SkipBody();
  // Asks whether an idle connection can be used again: ClosesAfterResponse tells.
  void Probe();

  [[nodiscard]] HTTPStatus Status() const { return response_.status; }
  // The number of the status line, 0 without one.
  [[nodiscard]] int StatusCode() const { return response_.code; }
  [[nodiscard]] const std::string& Location() const { return response_.location; }
  [[nodiscard]] const std::string& TransferEncoding() const { return response_.transferEncoding; }
  [[nodiscard]] std::uint64_t ContentLength() const { return response_.contentLength.value_or(0); }
  // What the peer calls this version of the file; empty if it doesn't.
  [[nodiscard]] const std::string& Version() const { return response_.Version(); }
  // Whether the body is all that is behind these first bytes of a file, and the file isn't known to be of another
  // version.
  [[nodiscard]] bool BringsRest(std::uint64_t offset, std::string_view version) const;
  // The path of the last request, at most 511 characters of it.
  [[nodiscard]] const std::string& RequestPath() const { return requestPath_; }

 private:
  // `last` are header lines behind all others.
  void SendGetOf(const char* scheme, const std::string& path, const LineBlock& last = {});
  void AddCookies(LineBlock& lines) const;
  // Sends the request, if it may be sent, and forgets the last answer.
  void Send(const LineBlock& lines, std::string_view path, std::string_view body);

  void TakeHeader(std::string_view line);
  // Reads lines up to an empty one. False if the peer stops before, or goes on for too long.
  template <typename Take>
  bool ReadLines(Take take);
  bool ReceiveBody(BodyFile& file);

  std::string requestPath_;
  bool requestSent_ = false;
  HTTPResponse response_;
};

}  // namespace morvex
