#include "net/transfer/socket_transport.h"

#include <utility>

#include "engine/format.h"
#include "net/transfer/network_settings.h"

namespace morvex {
namespace {

// The longest answer that a proxy may give to a CONNECT.
constexpr int kMaxProxyAnswer = 300 * 1024;

}  // namespace

SocketTransport::SocketTransport() : socket_(GetNetworkSettings().timeout) {}

void SocketTransport::Close() {
  SetError(NetError::kClosed);
  socket_.Shut();
}

bool SocketTransport::OpenRoute(const Endpoint& target, const Endpoint& proxy) {
  const bool direct = proxy.host.empty();
  peer_ = direct ? target : proxy;
  if (peer_.port == 0) peer_.port = target.port;
  const NetError error = direct ? NetError::kConnectFailed : NetError::kProxyFailed;
  if (!socket_.Open(peer_.host, peer_.port)) return GiveUp(error, socket_.FailureText());
  return direct || AskProxy(target) || GiveUp(error, "the proxy gave no answer");
}

bool SocketTransport::GiveUp(NetError error, std::string text) {
  socket_.Shut();
  NoteError(error);
  SetFailureText(std::move(text));
  return false;
}

// The answer ends where equally many CR and LF have come in a row, two of each: at its empty line. Nothing behind
// that is read, for it is the target that speaks there. What the proxy says isn't looked at: where it refused, the
// connection leads nowhere, which the conversation behind it will find.
bool SocketTransport::AskProxy(const Endpoint& target) {
  const std::string request = Nox::FormatText("CONNECT %s:%d HTTP/1.0 \r\n\r\n", target.host, target.port);
  if (request.find_first_of({"\r\n\0", 3}) != request.size() - 4) return false;
  if (socket_.Send(request.data(), request.size()) != static_cast<std::ptrdiff_t>(request.size()))
    return false;
  int returns = 0;
  int feeds = 0;
  for (int count = 0; count < kMaxProxyAnswer; ++count) {
    char byte = 0;
    if (socket_.Receive(&byte, 1) != 1) return false;
    if (byte == '\r') {
      ++returns;
    } else if (byte == '\n') {
      ++feeds;
    } else {
      returns = feeds = 0;
    }
    if (returns == feeds && feeds >= 2) return true;
  }
  return false;
}

std::ptrdiff_t SocketTransport::Checked(std::ptrdiff_t got) {
  if (got < 0) NoteError(NetError::kReadFailed);
  return got;
}

}  // namespace morvex
