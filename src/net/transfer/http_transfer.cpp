#include "net/transfer/http_transfer.h"

#include <utility>

#include "engine/format.h"
#include "engine/text.h"
#include "net/transfer/ssl_transport.h"
#include "net/transfer/tcp_transport.h"

namespace morvex {
namespace {

TransferStep Cancelled() {
  return {false, TransferOutcome::Failed(NetError::kClosed, "cancelled")};
}

// Nothing would be gained by asking a peer again that couldn't be reached.
bool WasReached(const HTTPConnection& connection) {
  const NetError error = connection.ErrorCode();
  return error != NetError::kConnectFailed && error != NetError::kProxyFailed;
}

bool IsWebServer(const URL& url, const DownloadSettings& settings) {
  return !settings.webServer.host.empty() && Nox::EqualsIgnoreCase(url.host, settings.webServer.host) &&
         url.DefaultPort() == settings.webServer.port;
}

}  // namespace

TransferStep HttpTransfer::RunPlain() {
  const Endpoint proxy = support_.settings().httpProxy;
  if (!proxy.host.empty()) return RunThroughProxy(proxy);
  return RunOver({std::string(url_.host), url_.DefaultPort(), {}, {}});
}

TransferStep HttpTransfer::RunThroughProxy(const Endpoint& proxy) {
  const std::uint32_t port = proxy.port != 0 ? proxy.port : url_.DefaultPort();
  TransferStep step = RunOver({proxy.host, port, {}, {}});
  if (step.outcome.error == NetError::kConnectFailed) step.outcome.error = NetError::kProxyFailed;
  return step;
}

// Requests hold the whole URL, so that a server and a proxy are asked alike.
TransferStep HttpTransfer::RunOver(const ServerLogin& peer) {
  const TransferPermit permit(support_.httpPermits, control_.Token());
  InUse connection(control_);
  if (!permit) return Cancelled();
  const bool wasIdle = connection.UseIdle(support_.idleHttp, peer);
  if (!wasIdle && !ConnectPlain(connection, peer)) return Cancelled();

  bool answered = Ask(*connection);
  // The connection may have ended before the request came there. A form isn't sent twice where it may have arrived.
  const bool mayRepeat = WasReached(*connection) && (wasIdle || form_.GetCount() == 0);
  if (connection->Status() == HTTPStatus::kNoResponse && mayRepeat) {
    if (!ConnectPlain(connection, peer)) return Cancelled();
    answered = Ask(*connection);
  }
  TransferStep step = Finish(*connection, answered);
  const bool reusable = connection->ErrorCode() == NetError::kNone && !connection->ClosesAfterResponse() &&
                        (step.startAgain || step.outcome.complete);
  if (reusable) support_.idleHttp.Keep(peer, connection.Release());
  return step;
}

// False only if the download was cancelled.
bool HttpTransfer::ConnectPlain(InUse& connection, const ServerLogin& peer) {
  TCPTransport* const transport = connection.UseOver<TCPTransport>(std::make_unique<HTTPConnection>());
  if (transport != nullptr) transport->Connect({peer.host, peer.port});
  return transport != nullptr;
}

TransferStep HttpTransfer::RunSecure() {
  const DownloadSettings settings = support_.settings();
  auto fresh = std::make_unique<HTTPConnection>();
  if (IsWebServer(url_, settings)) PutLogin(*fresh, settings);
  InUse connection(control_);
  SSLTransport* const transport = connection.UseOver<SSLTransport>(std::move(fresh));
  if (transport == nullptr) return Cancelled();
  transport->Connect({std::string(url_.host), url_.DefaultPort()}, settings.httpProxy);
  const bool answered = Ask(*connection);
  return Finish(*connection, answered);
}

// A login that fails is told by what the server answers without one.
void HttpTransfer::PutLogin(HTTPConnection& connection, const DownloadSettings& settings) {
  connection.SetHost(settings.webServer.host);
  if (support_.login.CopyTo(connection)) return;
  support_.logIn(control_);
  support_.login.CopyTo(connection);
}

bool HttpTransfer::Ask(HTTPConnection& connection) {
  connection.SetHost(url_.host);
  if (form_.GetCount() > 0) {
    connection.SendPost(url_, form_);
  } else if (WantsRest()) {
    connection.SendGetRest(url_.ToString(), known_.size, known_.version);
  } else {
    connection.SendGet(nullptr, "%s", url_.ToString());
  }
  return connection.ReadResponseHeaders();
}

TransferStep HttpTransfer::Finish(HTTPConnection& connection, bool answered) {
  while (answered && connection.Status() == HTTPStatus::kRedirect) {
    connection.SkipBody();
    const URL from = url_;
    if (!trail_.Follow(url_, connection.Location())) {
      const std::string text =
          Nox::FormatText("the server redirects to \"%s\", which is not followed", connection.Location());
      return {false, TransferOutcome::Failed(NetError::kReadFailed, text)};
    }
    form_.Clear();
    const bool usable = connection.ErrorCode() == NetError::kNone && !connection.ClosesAfterResponse();
    if (!usable || !SameServer(from, url_)) return {true, {}};
    answered = Ask(connection);
    if (connection.Status() == HTTPStatus::kNoResponse) return {true, {}};
  }
  return TakeBody(connection);
}

TransferStep HttpTransfer::TakeBody(HTTPConnection& connection) {
  const int code = connection.StatusCode();
  const bool isRest = WantsRest() && connection.BringsRest(known_.size, known_.version);
  if (WantsRest() && !isRest && (code == kPartialContent || code == kRangeNotSatisfiable)) {
    connection.SkipBody();
    known_ = {};
    return {true, {}};
  }
  if (connection.Status() != HTTPStatus::kSuccess || (code == kPartialContent && !isRest))
    return Failed(connection);
  const std::uint64_t offset = isRest ? known_.size : 0;
  if (!isRest && order_.begin) order_.begin(connection.Version());
  if (!connection.ReadBody(order_.localFile, offset)) return Failed(connection);
  return {false, TransferOutcome::Complete(offset)};
}

TransferStep HttpTransfer::Failed(const HTTPConnection& connection) const {
  if (control_.IsCancelled()) return Cancelled();
  NetError error = connection.ErrorCode();
  std::string text = connection.FailureText();
  const bool refused =
      connection.Status() == HTTPStatus::kFailed || connection.StatusCode() == kPartialContent;
  if (error == NetError::kNone && refused) {
    error = NetError::kReadFailed;
    text = Nox::FormatText("the server answered with status %d", connection.StatusCode());
  } else if (error == NetError::kNone) {
    text = "the answer is empty";
  } else if (text.empty()) {
    text = error == NetError::kNoLocalFile ? "the file couldn't be written" : "the answer broke off";
  }
  return {false, TransferOutcome::Failed(error, std::move(text))};
}

}  // namespace morvex
