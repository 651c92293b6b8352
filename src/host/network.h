#pragma once

#include <memory>
#include <string>

#include "net/transfer/download_manager.h"

namespace CLI {
class App;
}

namespace morvex::host {

class Console;
class Host;

// What the commands take that open connections.
struct NetworkOptions {
  bool isInsecure = false;
  unsigned timeoutSeconds = 30;
  std::string proxy;     // HOST:PORT
  std::string server;    // HOST[:PORT] of the service
  std::string username;  // of its login
};

void AddNetworkOptions(CLI::App& command, NetworkOptions& options);
// The same and those of the download station's server. The password comes from the variable MORVEX_PASSWORD.
void AddServerOptions(CLI::App& command, NetworkOptions& options);

// A manager of downloads over a cache folder, or without one. Peers must show valid certificates, unless the user
// said otherwise.
std::unique_ptr<DownloadManager> MakeDownloads(const NetworkOptions& options,
                                               const std::string& cacheFolder = {});
// The cache of the open installation.
std::string InstallationCache();

// Waits with a progress bar. False, with the reason on standard error, if nothing came of it; Ctrl-C cancels.
[[nodiscard]] bool WaitFor(const Console& console, DownloadTask& task, const std::string& what);

}  // namespace morvex::host
