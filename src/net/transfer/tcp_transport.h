#pragma once

#include "net/transfer/socket_transport.h"

namespace morvex {

// Plain TCP.
class TCPTransport final : public SocketTransport {
 public:
  // Connected to nothing.
  TCPTransport();
  // Connects; the caller asks ErrorCode.
  explicit TCPTransport(const Endpoint& target, const Endpoint& proxy = {});

  // Connects an object that was made without a target, once. It may be handed to its connection before, so that
  // Close ends the attempt, too.
  void Connect(const Endpoint& target, const Endpoint& proxy = {});
  // Waits on 127.0.0.1 for one connection to the port, and becomes it.
  void AwaitConnection(std::uint16_t port);

  std::ptrdiff_t Read(void* buffer, std::size_t length) override;
  std::ptrdiff_t Peek(void* buffer, std::size_t length) override;
  std::ptrdiff_t Write(const void* buffer, std::size_t length) override;
  // Always direct; to the proxy, if this goes through one.
  std::unique_ptr<NetTransport> OpenSecondary(std::uint32_t port) override;
  bool HasData() override;
};

}  // namespace morvex
