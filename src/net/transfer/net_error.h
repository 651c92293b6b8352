#pragma once

#include <cstdint>

namespace morvex {

// What went wrong on the network, in the numbers that messages give to users.
enum class NetError : std::uint32_t {
  kNone = 0,
  kProxyFailed = 1,    // the connection through the proxy failed
  kConnectFailed = 2,  // the direct connection or the TLS handshake failed
  kLoginFailed = 3,    // a login was refused, or there was nothing to log in with
  kNoLocalFile = 4,    // a local file is missing or empty
  kClosed = 5,         // closed by Close; of a download: cancelled
  kNoConnection = 6,   // there was no connection object
  kReadFailed = 7,     // a read failed, or the peer went away too early
};

}  // namespace morvex
