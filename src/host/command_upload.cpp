// upload: own assets to the download station.

#include <CLI/CLI.hpp>
#include <memory>
#include <utility>
#include <vector>

#include "database/operations/upload.h"
#include "frontend/messages/results_log.h"
#include "host/arguments.h"
#include "host/command.h"
#include "host/host.h"
#include "host/interrupt.h"
#include "host/json_writer.h"
#include "host/log_messages.h"
#include "host/network.h"
#include "net/transfer/download_manager.h"

namespace morvex::host {

namespace {

struct Options {
  std::vector<KUID> kuids;
  NetworkOptions network;
};

ExitCode Upload(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  KUIDList kuids;
  for (const KUID& kuid : options.kuids)
    kuids.AddUnique(kuid);
  const auto downloads = MakeDownloads(options.network, InstallationCache());
  ResultsLog log;
  bool isOnItsWay = false;
  {
    ProgressBar progress(host.console(), "Upload", 0);
    ZEBUploadAssets(kuids, log, *downloads, [&](DownloadTask& task, uint64_t size) {
      if (!std::exchange(isOnItsWay, true)) host.LetOthersIn();
      progress.ShowOf(task.GetBytesSent(), size);
      if (IsInterrupted()) task.Cancel();
    });
  }
  const bool isSent = log.ErrorCount() == 0;
  const bool isBrokenOff = !isSent && isOnItsWay && IsInterrupted();
  PrintLog(host.console(), log);
  if (isBrokenOff)
    host.console().Note("Broken off before the station answered; it may have taken the assets all the same.");
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject().Key("sent").Bool(isSent).Key("kuids").BeginArray();
    for (const KUID& kuid : kuids)
      json.Text(kuid.TagText());
    json.EndArray().EndObject();
  }
  if (isBrokenOff) return ExitCode::kInterrupted;
  return isSent ? ExitCode::kSuccess : ExitCode::kFailed;
}

}  // namespace

void DeclareUpload(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  AddKuids(command, "kuid", options->kuids, "Committed assets of your own, without errors")->required();
  AddServerOptions(command, options->network);
  command.footer(
      "Example:\n  MORVEX_PASSWORD=... MorvexHost upload 523841:1013 --server station.example --user me");
  command.callback([options, &run] { run = [options](Host& host) { return Upload(host, *options); }; });
}

}  // namespace morvex::host
