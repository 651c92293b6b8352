#include "tests/net/free_port.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

// Reuse is allowed only behind the bind, so that a bind to "any port" never shares this one.
FreePort::FreePort() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  const int yes = 1;
  if (bind(socket_, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
      getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
      setsockopt(socket_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes) != 0)
    throw std::runtime_error("no free port");
  number_ = ntohs(address.sin_port);
}

FreePort::~FreePort() {
  close(socket_);
}
