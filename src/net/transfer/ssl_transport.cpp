#include "net/transfer/ssl_transport.h"

#include <utility>

#include "net/transfer/network_settings.h"

namespace morvex {

SSLTransport::SSLTransport() : verifyPeer_(GetNetworkSettings().verifyPeers) {}

SSLTransport::SSLTransport(const Endpoint& target, const Endpoint& proxy) : SSLTransport() {
  Connect(target, proxy);
}

SSLTransport::~SSLTransport() {
  if (session_ && socket_.IsOpen()) session_->End();
}

void SSLTransport::Connect(const Endpoint& target, const Endpoint& proxy) {
  if (!OpenRoute(target, proxy)) return;
  std::string failure;
  session_ = TlsSession::Start(socket_, target.host, verifyPeer_, failure);
  if (!session_) GiveUp(NetError::kConnectFailed, std::move(failure));
}

std::ptrdiff_t SSLTransport::Read(void* buffer, std::size_t length) {
  return session_ ? Checked(session_->Read(buffer, length)) : -1;
}

std::ptrdiff_t SSLTransport::Peek(void* buffer, std::size_t length) {
  return session_ ? session_->Peek(buffer, length) : -1;
}

std::ptrdiff_t SSLTransport::Write(const void* buffer, std::size_t length) {
  return session_ ? session_->Write(buffer, length) : -1;
}

std::unique_ptr<NetTransport> SSLTransport::OpenSecondary(std::uint32_t) {
  return nullptr;
}

}  // namespace morvex
