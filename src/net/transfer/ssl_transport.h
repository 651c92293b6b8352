#pragma once

#include <memory>

#include "net/transfer/socket_transport.h"
#include "net/transfer/tls_session.h"

namespace morvex {

// TLS over TCP. The peer's certificate is verified if the settings of the network say so.
class SSLTransport final : public SocketTransport {
 public:
  // Connected to nothing: reads and writes give -1.
  SSLTransport();
  // Connects and shakes hands; the caller asks ErrorCode.
  explicit SSLTransport(const Endpoint& target, const Endpoint& proxy = {});
  // Tells the peer that the stream ends here.
  ~SSLTransport() override;

  // Connects an object that was made without a target, once. It may be handed to its connection before, so that
  // Close ends the attempt, too.
  void Connect(const Endpoint& target, const Endpoint& proxy = {});

  std::ptrdiff_t Read(void* buffer, std::size_t length) override;
  std::ptrdiff_t Peek(void* buffer, std::size_t length) override;
  std::ptrdiff_t Write(const void* buffer, std::size_t length) override;
  // Null: there is none over TLS.
  std::unique_ptr<NetTransport> OpenSecondary(std::uint32_t port) override;

 private:
  bool verifyPeer_;
  std::unique_ptr<TlsSession> session_;
};

}  // namespace morvex
