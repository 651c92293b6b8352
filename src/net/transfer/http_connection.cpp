#include "net/transfer/http_connection.h"

#include <utility>

#include "engine/text.h"
#include "net/transfer/body_file.h"
#include "net/transfer/chunked_body.h"
#include "net/transfer/multipart_form.h"
#include "net/transfer/network_settings.h"
#include "net/transfer/url.h"

namespace morvex {
namespace {

constexpr int kMaxLines = 5000;
constexpr int kMaxInterimAnswers = 100;
constexpr std::uint64_t kLongestSkipped = 1 << 20;

void AddUserAgent(LineBlock& lines) {
  const NetworkSettings settings = GetNetworkSettings();
  lines.Add("User-Agent: %s/%d (XNR) %s/%d\r\n", settings.applicationName, settings.applicationVersion,
            settings.applicationName, settings.applicationVersion);
}

// These answers have no body, whatever their headers say.
bool IsBodiless(int code) {
  return code == 204 || code == 304;
}

}  // namespace

void HTTPConnection::SendGetRest(const std::string& path, std::uint64_t offset, std::string_view version) {
  LineBlock range;
  range.Add("Range: bytes=%u-\r\n", offset);
  range.Add("If-Range: %s\r\n", version);
  SendGetOf(nullptr, path, range);
}

void HTTPConnection::SendGetOf(const char* scheme, const std::string& path, const LineBlock& last) {
  LineBlock lines;
  if (scheme != nullptr) {
    const std::string_view written = Nox::EqualsIgnoreCase(scheme, "https") ? "http" : scheme;
    lines.Add("GET %s://%s%s HTTP/1.1\r\n", written, Host(), path);
  } else {
    lines.Add("GET %s HTTP/1.1\r\n", path);
  }
  AddUserAgent(lines);
  lines.Add("Host: %s\r\n", Host());
  lines.Add("Proxy-Connection: Keep-Alive\r\n");
  lines.Add("Connection: Keep-Alive\r\n");
  AddCookies(lines);
  lines.Add(last);
  lines.Add("\r\n");
  Send(lines, path, {});
}

void HTTPConnection::SendPost(const URL& url, const TagContainer& fields) {
  const MultipartForm form(fields);
  const std::string named = url.PathAndQuery();
  const std::string path = named.starts_with('/') ? named : "/" + named;
  LineBlock lines;
  lines.Add("POST %s HTTP/1.1\r\n", path);
  AddUserAgent(lines);
  lines.Add("Host: %s\r\n", Host());
  lines.Add("Connection: Close\r\n");
  lines.Add("Content-type: multipart/form-data, boundary=%s\r\n", form.kBoundary);
  AddCookies(lines);
  lines.Add("Content-length: %i\r\n", form.Text().size());
  lines.Add("\r\n");
  if (form.Refused()) lines.Refuse();
  Send(lines, path, form.Text());
  closeAfterResponse_ = true;
}

void HTTPConnection::AddCookies(LineBlock& lines) const {
  if (!Cookies().empty()) lines.Add("Cookie: %s\r\n", CookieText());
}

void HTTPConnection::Send(const LineBlock& lines, std::string_view path, std::string_view body) {
  requestPath_ = path.substr(0, kLineSize - 1);
  requestSent_ = IsUsable() && !lines.Refused();
  // A peer that takes no more may yet say why, so the answer is read in any case.
  if (requestSent_ && WriteBlock(lines) && !body.empty()) Transport()->Write(body.data(), body.size());
  response_ = HTTPResponse();
  bytesReceived_ = 0;
}

template <typename Take>
bool HTTPConnection::ReadLines(Take take) {
  std::string line;
  for (int count = 0; ReadLine(line); ++count) {
    if (count == kMaxLines) return false;
    take(line);
  }
  if (InputEnded()) return false;
  PassLineEnd();
  return true;
}

bool HTTPConnection::ReadResponseHeaders() {
  response_ = HTTPResponse();
  bytesExpected_ = 0;
  BeginBlock();
  std::string line;
  if (!std::exchange(requestSent_, false) || !ReadLine(line)) {
    response_.status = HTTPStatus::kNoResponse;
    BreakOff(NetError::kReadFailed);
    return false;
  }
  TakeHeader(line);
  const auto take = [this](std::string_view header) { TakeHeader(header); };
  bool whole = ReadLines(take);
  for (int count = 0; whole && response_.IsInterim(); ++count) {
    response_ = HTTPResponse();
    whole = count < kMaxInterimAnswers && ReadLines(take);
  }
  const bool isPart = response_.code == kPartialContent && response_.range;
  bytesExpected_ = isPart ? response_.range->total : ContentLength();
  closeAfterResponse_ = closeAfterResponse_ || response_.closes;
  if (whole && !response_.malformed) return response_.status != HTTPStatus::kFailed;
  response_.status = HTTPStatus::kFailed;
  BreakOff(NetError::kReadFailed);
  return false;
}

void HTTPConnection::TakeHeader(std::string_view line) {
  response_.TakeLine(line);
  if (!response_.cookie.empty()) StoreCookie(response_.cookie);
}

bool HTTPConnection::BringsRest(std::uint64_t offset, std::string_view version) const {
  const std::optional<ContentRange>& range = response_.range;
  return response_.code == kPartialContent && range && range->first == offset &&
         range->last == range->total - 1 && response_.contentLength == range->total - offset &&
         response_.transferEncoding.empty() && (Version().empty() || Version() == version);
}

bool HTTPConnection::ReadBody(std::string_view fileName, std::uint64_t offset) {
  if (!IsUsable()) return false;
  BodyFile file(bytesReceived_, GetNetworkSettings().largestBody);
  const bool whole = file.Open(fileName, offset) && ReceiveBody(file) && file.Close();
  if (!whole) BreakOff(file.StoringFailed() ? NetError::kNoLocalFile : NetError::kReadFailed);
  // What comes behind the body belongs to no request of ours.
  if (input_.HasRest()) closeAfterResponse_ = true;
  return whole && bytesReceived_ > 0;
}

void HTTPConnection::SkipBody() {
  if (!IsUsable()) return;
  const bool hasEnd =
      IsBodiless(response_.code) || response_.contentLength || !response_.transferEncoding.empty();
  BodyFile nowhere(bytesReceived_, kLongestSkipped);
  nowhere.Drop();
  if (!hasEnd || ContentLength() > kLongestSkipped || !ReceiveBody(nowhere)) BreakOff(NetError::kReadFailed);
  if (input_.HasRest()) closeAfterResponse_ = true;
}

bool HTTPConnection::ReceiveBody(BodyFile& file) {
  if (IsBodiless(response_.code)) return true;
  if (Nox::EqualsIgnoreCase(response_.transferEncoding, "chunked")) {
    if (!ReadChunks(input_, file)) return false;
    BeginBlock();
    return ReadLines([](std::string_view) {});
  }
  if (!response_.transferEncoding.empty()) return false;  // we ask for no coding, and know no other
  if (response_.contentLength) return file.Receive(input_, *response_.contentLength);
  closeAfterResponse_ = true;
  return file.ReceiveAll(input_);
}

void HTTPConnection::Probe() {
  if (closeAfterResponse_) return;
  // Bytes that nobody asked for would be taken for the next answer.
  const bool idle = IsUsable() && !input_.HasRest() && !Transport()->HasData();
  closeAfterResponse_ = !idle || !WriteLine("\r\n") || !WriteLine("\r\n");
}

}  // namespace morvex
