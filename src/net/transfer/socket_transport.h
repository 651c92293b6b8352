#pragma once

#include <cstdint>
#include <string>

#include "net/transfer/net_transport.h"
#include "net/transfer/stream_socket.h"

namespace morvex {

// Where a connection goes. As a proxy: an empty host stands for none, a port of 0 for the target's port.
struct Endpoint {
  std::string host;
  std::uint32_t port = 0;
};

// What the transports over a socket share: the way to the peer, directly or through the CONNECT of an HTTP proxy.
class SocketTransport : public NetTransport {
 public:
  // Ends what the socket waits for. The handle itself lives as long as the object, so that no other file can get
  // its number while a thread is still in a read.
  void Close() override;

  [[nodiscard]] bool IsOpen() const { return socket_.IsOpen(); }
  [[nodiscard]] std::uint64_t BytesSent() const override { return socket_.BytesSent(); }

 protected:
  SocketTransport();

  // Connects. False, with the error and its words set, if the peer or the proxy can't be had.
  [[nodiscard]] bool OpenRoute(const Endpoint& target, const Endpoint& proxy);
  // Gives the socket up, and notes why. Gives false, to be returned.
  bool GiveUp(NetError error, std::string text);
  // Notes kReadFailed for a negative result, and gives the result.
  std::ptrdiff_t Checked(std::ptrdiff_t got);

  StreamSocket socket_;
  Endpoint peer_;  // what the socket is connected to: the proxy, if there is one

 private:
  bool AskProxy(const Endpoint& target);
};

}  // namespace morvex
