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
#include "net/transfer/part_file.h"

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
  const std::string wanted = options.out.empty() ? std::string(url.FileName()) : options.out;
  const std::string target = AbsolutePath(wanted.empty() ? "index.html" : wanted);
  CatchInterrupts();
  const auto downloads = MakeDownloads(options.network);
  const DownloadHandle task = downloads->DownloadToFile(url, target, options.isAnew ? kDownloadAnew : 0);
  if (!WaitFor(host.console(), *task, "Download")) {
    if (task->GetBytesReceived() > 0 && PartFile(target).Find(url).size > 0)
      host.console().Note("The same command goes on where this one ended.");
    return IsInterrupted() ? ExitCode::kInterrupted : ExitCode::kFailed;
  }
  const auto size = static_cast<int64_t>(Nox::File::SizeOf(target).value_or(0));
  const auto resumedFrom = static_cast<int64_t>(task->GetResumedFrom());
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject()
        .Key("url")
        .Text(options.url)
        .Key("path")
        .Text(target)
        .Key("size")
        .Number(size)
        .Key("resumed_from")
        .Number(resumedFrom)
        .EndObject();
  } else {
    const std::string before = resumedFrom > 0 ? ", " + SizeText(resumedFrom) + " of it from before" : "";
    host.console().Note(SizeText(size) + " in \"" + target + "\"" + before + ".");
  }
  return ExitCode::kSuccess;
}

}  // namespace

void DeclareFetch(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  command.add_option("url", options->url, "Address: http, https or ftp")->required()->type_name("URL");
  command.add_option("-o,--out", options->out, "File to write; without it the address's last part")
      ->type_name("FILE");
  command.add_flag("--anew", options->isAnew, "Begin from the start, whatever an earlier fetch left");
  AddNetworkOptions(command, options->network);
  command.footer(
      "What comes goes to FILE.part, which becomes FILE when it is whole. A fetch that was cut off goes on "
      "where it\n"
      "ended when it is asked for again, if the server still has the same file.\n"
      "Example:\n  MorvexHost fetch https://example.org/valley.cdp");
  command.callback([options, &run] { run = [options](Host& host) { return Fetch(host, *options); }; });
}

}  // namespace morvex::host
