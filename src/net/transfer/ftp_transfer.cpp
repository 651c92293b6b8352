#include "net/transfer/ftp_transfer.h"

#include <string>
#include <utility>

#include "net/transfer/connection_in_use.h"
#include "net/transfer/tcp_transport.h"

namespace morvex {
namespace {

using InUse = ConnectionInUse<FTPConnection>;

ServerLogin LoginOf(const URL& url) {
  return {std::string(url.host), url.DefaultPort(), std::string(url.user), std::string(url.password)};
}

// False only if the download was cancelled.
bool Connect(InUse& connection, const ServerLogin& server) {
  TCPTransport* const transport =
      connection.UseOver<TCPTransport>(std::make_unique<FTPConnection>(server.host));
  if (transport != nullptr) transport->Connect({server.host, server.port});
  return transport != nullptr;
}

TransferOutcome Failed(const FTPConnection& connection, NetError otherwise) {
  const NetError error = connection.ErrorCode();
  std::string text = connection.FailureText();
  if (text.empty()) text = connection.ReplyLine();
  return TransferOutcome::Failed(error == NetError::kNone ? otherwise : error, std::move(text));
}

// The path of an address begins in the folder that the login leads to.
std::string_view RemoteName(const URL& url) {
  const std::string_view path = url.path;
  return path.starts_with('/') ? path.substr(1) : path;
}

// FTP says of a file's version nothing but its size.
std::string VersionOf(std::uint64_t size) {
  return "size " + std::to_string(size);
}

}  // namespace

TransferOutcome FetchByFtp(const TransferOrder& order, TransferControl& control, TransferSupport& support) {
  const TransferOutcome cancelled = TransferOutcome::Failed(NetError::kClosed, "cancelled");
  const TransferPermit permit(support.ftpPermits, control.Token());
  if (!permit) return cancelled;

  const ServerLogin server = LoginOf(order.url);
  InUse connection(control);
  if (!connection.UseIdle(support.idleFtp, server)) {
    if (!Connect(connection, server)) return cancelled;
    if (!connection->Login(server.user, server.password)) return Failed(*connection, NetError::kLoginFailed);
  }
  std::uint64_t resumedFrom = order.known.size;
  const auto isBeginning = [&](std::uint64_t size) {
    const std::string version = VersionOf(size);
    const bool isSame = order.known.version.empty() || order.known.version == version;
    if (resumedFrom > 0 && resumedFrom <= size && isSame) return true;
    resumedFrom = 0;
    if (order.begin) order.begin(version);
    return false;
  };
  if (!connection->Retrieve(RemoteName(order.url), order.localFile, resumedFrom, isBeginning))
    return Failed(*connection, NetError::kReadFailed);
  if (!connection->ClosesAfterResponse()) support.idleFtp.Keep(server, connection.Release());
  return TransferOutcome::Complete(resumedFrom);
}

}  // namespace morvex
