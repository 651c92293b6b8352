#include "net/transfer/download_settings.h"

namespace morvex {

URL ServerUrl(const Endpoint& server) {
  URL url;
  url.scheme.Set("https");
  url.host.Set(server.host);
  url.port = server.port == DownloadSettings::kTlsPort ? 0 : server.port;
  return url;
}

}  // namespace morvex
