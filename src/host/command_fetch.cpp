// fetch: one file from the network.

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "engine/file.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/interrupt.h"
#include "host/json_writer.h"
#include "host/network.h"
#include "host/paths.h"

namespace morvex::host {

namespace {

struct Options {
  std::string url;
  std::string out;
  bool isAnew = false;
  NetworkOptions network;
};

ExitCode Fetch(Host& host, const Options& options) {
  const URL url(options.url);
  if (!url.IsValid())
    return host.Fail(ExitCode::kUsage,
                     "\"" + options.url + "\" is no address. Write it as https://host/path.");
  if (!host.Open()) return ExitCode::kNoInstallation;
  const std::string cache = InstallationCache();
  host.LetOthersIn();
  const auto downloads = MakeDownloads(options.network, cache);
  const DownloadHandle task = downloads->RequestDownload(url, options.isAnew ? kDownloadAnew : 0);
  if (!WaitFor(host.console(), *task, "Download"))
    return IsInterrupted() ? ExitCode::kInterrupted : ExitCode::kFailed;

  std::string path;
  Nox::PString name;
  if (!task->GetResult(path, name)) return host.Fail(ExitCode::kFailed, "The download left no file.");
  const std::string wanted = options.out.empty() ? std::string(url.FileName()) : options.out;
  const std::string target = AbsolutePath(wanted.empty() ? "index.html" : wanted);
  if (!Nox::File::CopyFile(path, target))
    return host.Fail(ExitCode::kFailed,
                     "\"" + target + "\" couldn't be written. Check its folder and the free space.");
  const auto size = static_cast<int64_t>(Nox::File::SizeOf(target).value_or(0));
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject()
        .Key("url")
        .Text(options.url)
        .Key("path")
        .Text(target)
        .Key("size")
        .Number(size)
        .EndObject();
  } else {
    host.console().Note(SizeText(size) + " in \"" + target + "\".");
  }
  return ExitCode::kSuccess;
}

}  // namespace

void DeclareFetch(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  command.add_option("url", options->url, "Address: http, https or ftp")->required()->type_name("URL");
  command.add_option("-o,--out", options->out, "File to write; without it the address's last part")
      ->type_name("FILE");
  command.add_flag("--anew", options->isAnew, "Don't answer from the installation's cache");
  AddNetworkOptions(command, options->network);
  command.footer(
      "A transfer by FTP that was cut off goes on where it ended when it is asked for again.\n"
      "Example:\n  MorvexHost fetch https://example.org/valley.cdp");
  command.callback([options, &run] { run = [options](Host& host) { return Fetch(host, *options); }; });
}

}  // namespace morvex::host
