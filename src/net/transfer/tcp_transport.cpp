#include "net/transfer/tcp_transport.h"

namespace morvex {

TCPTransport::TCPTransport() = default;

TCPTransport::TCPTransport(const Endpoint& target, const Endpoint& proxy) {
  Connect(target, proxy);
}

void TCPTransport::Connect(const Endpoint& target, const Endpoint& proxy) {
  (void)OpenRoute(target, proxy);
}

void TCPTransport::AwaitConnection(std::uint16_t port) {
  if (!socket_.Await(port)) GiveUp(NetError::kConnectFailed, socket_.FailureText());
}

std::ptrdiff_t TCPTransport::Read(void* buffer, std::size_t length) {
  return Checked(socket_.Receive(buffer, length));
}

std::ptrdiff_t TCPTransport::Peek(void* buffer, std::size_t length) {
  return socket_.Receive(buffer, length, sockets::Receive::kPeek);
}

std::ptrdiff_t TCPTransport::Write(const void* buffer, std::size_t length) {
  return socket_.Send(buffer, length);
}

std::unique_ptr<NetTransport> TCPTransport::OpenSecondary(std::uint32_t port) {
  return std::make_unique<TCPTransport>(Endpoint{peer_.host, port});
}

bool TCPTransport::HasData() {
  return socket_.HasData();
}

}  // namespace morvex
