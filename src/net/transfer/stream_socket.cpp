#include "net/transfer/stream_socket.h"

#include <algorithm>
#include <utility>

#include "net/transfer/ip_address.h"

namespace morvex {
namespace {

// A wait counts anew for each piece, so that a long message over a slow line isn't taken for a dead peer.
constexpr std::size_t kSendPiece = 64 * 1024;

}  // namespace

StreamSocket::~StreamSocket() {
  if (handle_ != sockets::INVALID_SOCKET) sockets::closesocket(handle_);
}

bool StreamSocket::Open(const std::string& host, std::uint32_t port) {
  const std::uint32_t address = NameToIPAddress(host);
  if (address == 0) return Fail("the host isn't known");
  if (port == 0 || port > 65535) return Fail("there is no such port");
  if (!Adopt(sockets::socket(timeout_))) return FailWithLastError();
  return sockets::connect(handle_, address, static_cast<std::uint16_t>(port), timeout_, shut_) ||
         FailWithLastError();
}

bool StreamSocket::Await(std::uint16_t port) {
  return (Adopt(sockets::socket(timeout_)) && sockets::bind(handle_, sockets::INADDR_LOCAL, port) &&
          sockets::listen(handle_, 1) && Adopt(sockets::accept(handle_, timeout_))) ||
         FailWithLastError();
}

std::ptrdiff_t StreamSocket::Receive(void* buffer, std::size_t length, sockets::Receive how) {
  return IsOpen() ? sockets::recv(handle_, buffer, length, how) : -1;
}

std::ptrdiff_t StreamSocket::Send(const void* buffer, std::size_t length) {
  if (!IsOpen()) return -1;
  const char* const bytes = static_cast<const char*>(buffer);
  std::size_t sent = 0;
  while (sent < length) {
    const std::ptrdiff_t now = sockets::send(handle_, bytes + sent, std::min(length - sent, kSendPiece));
    if (now <= 0) break;
    sent += static_cast<std::size_t>(now);
    sent_ += static_cast<std::uint64_t>(now);
  }
  return sent > 0 || length == 0 ? static_cast<std::ptrdiff_t>(sent) : -1;
}

bool StreamSocket::HasData() const {
  unsigned long waiting = 0;
  return IsOpen() && sockets::ioctlsocket(handle_, waiting) && waiting > 0;
}

void StreamSocket::Shut() {
  const std::lock_guard guard(lock_);
  shut_ = true;
  if (handle_ != sockets::INVALID_SOCKET) sockets::shutdown(handle_);
}

bool StreamSocket::Adopt(sockets::SOCKET handle) {
  if (handle == sockets::INVALID_SOCKET) return false;
  const std::lock_guard guard(lock_);
  std::swap(handle_, handle);
  if (handle != sockets::INVALID_SOCKET) sockets::closesocket(handle);
  return !shut_;
}

bool StreamSocket::Fail(std::string text) {
  failureText_ = std::move(text);
  return false;
}

bool StreamSocket::FailWithLastError() {
  return Fail(sockets::ErrorText(sockets::WSAGetLastError()));
}

}  // namespace morvex
