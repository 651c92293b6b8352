#include "tests/net/hostile_peer.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

namespace {

constexpr int kPollMs = 20;
constexpr int kDrainMs = 100;

// Waits until something can be read; false once the test ends.
bool AwaitInput(int handle, const std::atomic<bool>& stopped) {
  pollfd waiting{handle, POLLIN, 0};
  while (!stopped) {
    if (poll(&waiting, 1, kPollMs) > 0) return true;
  }
  return false;
}

}  // namespace

PeerSocket::~PeerSocket() {
  if (handle_ == -1) return;
  // Unread bytes would turn the end of the stream into a reset, and take what was sent with it.
  shutdown(handle_, SHUT_WR);
  char rest[4096];
  pollfd waiting{handle_, POLLIN, 0};
  while (!stopped_ && poll(&waiting, 1, kDrainMs) > 0 && recv(handle_, rest, sizeof rest, 0) > 0) {
  }
  close(handle_);
}

std::string PeerSocket::ReadUpTo(std::string_view end) {
  std::string text;
  char byte = 0;
  while (handle_ != -1 && AwaitInput(handle_, stopped_) && recv(handle_, &byte, 1, 0) == 1) {
    text += byte;
    if (text.ends_with(end)) break;
  }
  return text;
}

bool PeerSocket::Send(std::string_view bytes) {
  while (!bytes.empty() && handle_ != -1 && !stopped_) {
    pollfd waiting{handle_, POLLOUT, 0};
    if (poll(&waiting, 1, kPollMs) <= 0) continue;
    const ssize_t sent = send(handle_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return bytes.empty();
}

void PeerSocket::Stall() {
  ReadUpTo(std::string_view("\0stalled", 8));
}

void PeerSocket::Reset() {
  const linger atOnce{1, 0};
  setsockopt(handle_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  close(std::exchange(handle_, -1));
}

HostilePeer::HostilePeer(Script script)
    : script_(std::move(script)), listening_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  if (bind(listening_, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(listening_, 16) != 0 ||
      getsockname(listening_, reinterpret_cast<sockaddr*>(&address), &size) != 0)
    throw std::runtime_error("the peer can't listen");
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

HostilePeer::~HostilePeer() {
  stopped_ = true;
  thread_.join();
  close(listening_);
}

HostilePeer::Script HostilePeer::Answer(std::string bytes) {
  return [answer = std::move(bytes)](PeerSocket& peer) {
    peer.ReadUpTo("\r\n\r\n");
    peer.Send(answer);
  };
}

void HostilePeer::Serve() {
  while (AwaitInput(listening_, stopped_)) {
    const int handle = accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC);
    if (handle == -1) continue;
    ++connections_;
    PeerSocket peer(handle, stopped_);
    script_(peer);
  }
}
