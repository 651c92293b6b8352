#include "host/network.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <chrono>
#include <cstdlib>

#include "database/catalogue/kuid_generator.h"
#include "engine/path.h"
#include "host/console.h"
#include "host/interrupt.h"
#include "net/transfer/network_settings.h"

namespace morvex::host {

namespace {

constexpr const char* kGroup = "Network";
constexpr const char* kPasswordVariable = "MORVEX_PASSWORD";
constexpr std::chrono::milliseconds kDrawEvery{100};

// "host:8080"; a text without a number behind its last colon is a host alone.
Endpoint ParseEndpoint(const std::string& text, uint32_t usualPort) {
  const size_t colon = text.rfind(':');
  uint32_t port = 0;
  if (colon != text.npos) {
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data() + colon + 1, end, port);
    if (parsed.ec == std::errc() && parsed.ptr == end && port > 0 && port < 65536)
      return {text.substr(0, colon), port};
  }
  return {text, usualPort};
}

}  // namespace

void AddNetworkOptions(CLI::App& command, NetworkOptions& options) {
  command
      .add_flag("--insecure", options.isInsecure, "Accept any certificate; whoever listens may be anybody")
      ->group(kGroup);
  command.add_option("--timeout", options.timeoutSeconds, "Seconds to wait for a silent peer; 30 without it")
      ->check(CLI::Range(1, 3600))
      ->type_name("SECONDS")
      ->group(kGroup);
  command.add_option("--proxy", options.proxy, "Proxy for HTTP and FTP")
      ->type_name("HOST:PORT")
      ->group(kGroup);
}

void AddServerOptions(CLI::App& command, NetworkOptions& options) {
  AddNetworkOptions(command, options);
  command.add_option("--server", options.server, "Server of the download station")
      ->required()
      ->type_name("HOST[:PORT]")
      ->group(kGroup);
  command
      .add_option("--user", options.username, "Name of the login; its password is taken from MORVEX_PASSWORD")
      ->type_name("NAME")
      ->group(kGroup);
}

std::unique_ptr<DownloadManager> MakeDownloads(const NetworkOptions& options,
                                               const std::string& cacheFolder) {
  constexpr uint32_t kProxyPort = 8080;
  NetworkSettings network = GetNetworkSettings();
  network.verifyPeers = !options.isInsecure;
  network.timeout = std::chrono::seconds(options.timeoutSeconds);
  network.applicationName = "MorvexHost";
  SetNetworkSettings(network);

  auto downloads = std::make_unique<DownloadManager>(cacheFolder);
  DownloadSettings settings = downloads->Settings();
  if (!options.proxy.empty())
    settings.httpProxy = settings.ftpProxy = ParseEndpoint(options.proxy, kProxyPort);
  if (!options.server.empty()) settings.webServer = ParseEndpoint(options.server, DownloadSettings::kTlsPort);
  settings.username = options.username;
  const char* const password = std::getenv(kPasswordVariable);
  if (password != nullptr) settings.password = password;
  downloads->SetSettings(settings);
  return downloads;
}

std::string InstallationCache() {
  return Nox::Path::AddPath(ZEBRoot(), "cache/internet");
}

bool WaitFor(const Console& console, DownloadTask& task, const std::string& what) {
  {
    ProgressBar progress(console, what, 0);
    while (!task.WaitUntilFinished(kDrawEvery)) {
      progress.ShowOf(task.GetBytesReceived(), task.GetTotalBytes());
      if (IsInterrupted()) task.Cancel();
    }
  }
  if (task.GetStatus() == DownloadTask::Status::kComplete) return true;
  if (IsInterrupted()) return false;
  const std::string reason = task.GetFailureText();
  console.Error(what + " failed. " + (reason.empty() ? "The server sent nothing." : reason));
  return false;
}

}  // namespace morvex::host
