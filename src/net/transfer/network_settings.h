#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace morvex {

// What all connections of the process have in common. A connection takes what is set when it is made.
struct NetworkSettings {
  // How long a connect, a read, or the sending of one piece may wait for the peer.
  std::chrono::milliseconds timeout{30000};
  // Whether TLS peers must show a certificate for the name asked for, from an authority of the system's store.
  // The store is that of OpenSSL; the environment's SSL_CERT_FILE and SSL_CERT_DIR name another.
  bool verifyPeers = false;
  // What the User-Agent line says.
  std::string applicationName = "Morvex";
  int applicationVersion = 1;
  // A body of more bytes isn't taken, announced or not.
  std::uint64_t largestBody = std::uint64_t{64} << 30;
};

// Any thread.
[[nodiscard]] NetworkSettings GetNetworkSettings();
void SetNetworkSettings(const NetworkSettings& settings);

}  // namespace morvex
