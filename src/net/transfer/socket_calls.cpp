#include "net/transfer/socket_calls.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <system_error>

namespace morvex::sockets {
namespace {

using std::chrono::milliseconds;

// How long a connect goes on before it looks whether it shall stop.
constexpr milliseconds kStopInterval{50};

sockaddr_in AddressOf(std::uint32_t address, std::uint16_t port) {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_port = htons(port);
  result.sin_addr.s_addr = address;
  return result;
}

template <typename Call>
auto Uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result >= 0 || errno != EINTR) return result;
  }
}

template <typename T>
bool SetOption(SOCKET socket, int level, int name, const T& value) {
  return ::setsockopt(socket, level, name, &value, sizeof value) == 0;
}

bool Prepare(SOCKET socket, milliseconds timeout) {
  const auto count = std::max<milliseconds::rep>(timeout.count(), 1);  // 0 would be no limit
  const timeval limit{static_cast<time_t>(count / 1000), static_cast<suseconds_t>(count % 1000 * 1000)};
  return SetOption(socket, SOL_SOCKET, SO_RCVTIMEO, limit) &&
         SetOption(socket, SOL_SOCKET, SO_SNDTIMEO, limit) && SetOption(socket, IPPROTO_TCP, TCP_NODELAY, 1);
}

bool SetBlocking(SOCKET socket, bool blocking) {
  const int flags = ::fcntl(socket, F_GETFL);
  return ::fcntl(socket, F_SETFL, blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK) == 0;
}

// Waits until a connect that was begun has come to an end.
bool AwaitConnected(SOCKET socket, milliseconds timeout, const std::atomic<bool>& stop) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + timeout;
  pollfd waiting{socket, POLLOUT, 0};
  while (!stop && Clock::now() < end) {
    const int ready = ::poll(&waiting, 1, static_cast<int>(std::min(kStopInterval, timeout).count()));
    if (ready < 0 && errno != EINTR) return false;
    if (ready <= 0) continue;
    int error = 0;
    socklen_t size = sizeof error;
    if (::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) != 0) return false;
    errno = error;
    return error == 0;
  }
  errno = stop ? ECANCELED : ETIMEDOUT;
  return false;
}

}  // namespace

std::uint32_t gethostbyname(const std::string& name) {
  addrinfo wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (::getaddrinfo(name.c_str(), nullptr, &wanted, &found) != 0) return 0;
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> list(found, &::freeaddrinfo);
  sockaddr_in first{};
  std::memcpy(&first, list->ai_addr, std::min<std::size_t>(sizeof first, list->ai_addrlen));
  return first.sin_addr.s_addr;
}

SOCKET socket(milliseconds timeout) {
  const SOCKET made = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP);
  if (made == INVALID_SOCKET || Prepare(made, timeout)) return made;
  closesocket(made);
  return INVALID_SOCKET;
}

bool connect(SOCKET socket, std::uint32_t address, std::uint16_t port, milliseconds timeout,
             const std::atomic<bool>& stop) {
  const sockaddr_in peer = AddressOf(address, port);
  if (!SetBlocking(socket, false)) return false;
  if (::connect(socket, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0) {
    if (errno != EINPROGRESS || !AwaitConnected(socket, timeout, stop)) return false;
  }
  return SetBlocking(socket, true);
}

bool bind(SOCKET socket, std::uint32_t address, std::uint16_t port) {
  const sockaddr_in own = AddressOf(address, port);
  return SetOption(socket, SOL_SOCKET, SO_REUSEADDR, 1) &&
         ::bind(socket, reinterpret_cast<const sockaddr*>(&own), sizeof own) == 0;
}

bool listen(SOCKET socket, int backlog) {
  return ::listen(socket, backlog) == 0;
}

SOCKET accept(SOCKET socket, milliseconds timeout) {
  const SOCKET made = Uninterrupted([&] { return ::accept4(socket, nullptr, nullptr, SOCK_CLOEXEC); });
  if (made == INVALID_SOCKET || Prepare(made, timeout)) return made;
  closesocket(made);
  return INVALID_SOCKET;
}

std::ptrdiff_t recv(SOCKET socket, void* buffer, std::size_t length, Receive how) {
  return Uninterrupted([&] { return ::recv(socket, buffer, length, how == Receive::kPeek ? MSG_PEEK : 0); });
}

std::ptrdiff_t send(SOCKET socket, const void* buffer, std::size_t length) {
  return Uninterrupted([&] { return ::send(socket, buffer, length, MSG_NOSIGNAL); });
}

bool ioctlsocket(SOCKET socket, unsigned long& waiting) {
  int count = 0;
  if (::ioctl(socket, FIONREAD, &count) != 0) return false;
  waiting = static_cast<unsigned long>(count);
  return true;
}

void shutdown(SOCKET socket) {
  ::shutdown(socket, SHUT_RDWR);
}

void closesocket(SOCKET socket) {
  ::close(socket);
}

int WSAGetLastError() {
  return errno;
}

std::string ErrorText(int error) {
  return std::system_category().message(error);
}

}  // namespace morvex::sockets
