#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "net/transfer/socket_transport.h"
#include "net/transfer/url.h"

namespace morvex {

// What all downloads of a manager have in common. A download takes what is set when it connects.
struct DownloadSettings {
  static constexpr std::uint32_t kTlsPort = 443;

  Endpoint httpProxy;                   // an empty host stands for none
  Endpoint ftpProxy;                    // an HTTP proxy that fetches from FTP servers
  Endpoint webServer{"", kTlsPort};     // of the service and its login; an empty host stands for none
  Endpoint uploadServer{"", kTlsPort};  // where assets are sent; an empty host stands for the web server
  std::string username;
  std::string password;  // sent to nobody but the web server
  int screenWidth = 1024;
  std::string language = "EN";
  // Where a "file:" URL of the host "morvex" leads whose path isn't below "/cache/": the path of a local file, or
  // nothing. May be empty. Called under the manager's lock, which it mustn't ask for anything.
  std::function<std::optional<std::string>(std::string_view path)> localFiles;
};

// "https://" and the server.
[[nodiscard]] URL ServerUrl(const Endpoint& server);

}  // namespace morvex
