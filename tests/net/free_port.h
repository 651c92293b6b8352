#pragma once

#include <cstdint>

// A port of 127.0.0.1 that nobody else gets as long as this lives. A server that allows reuse of addresses, as all
// of ours do, can listen there at once: the port is bound here, but nothing listens.
class FreePort {
 public:
  FreePort();
  ~FreePort();
  FreePort(const FreePort&) = delete;
  FreePort& operator=(const FreePort&) = delete;

  std::uint16_t Number() const { return number_; }

 private:
  int socket_;
  std::uint16_t number_;
};
