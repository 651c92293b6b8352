// clone: a new asset out of an installed one, or its next version.

#include <CLI/CLI.hpp>
#include <memory>

#include "database/catalogue/asset_info.h"
#include "database/operations/clone.h"
#include "frontend/messages/results_log.h"
#include "host/arguments.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/json_writer.h"
#include "host/log_messages.h"

namespace morvex::host {

namespace {

struct Options {
  KUID kuid;
  bool isNewVersion = false;
};

ExitCode Clone(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  const std::optional<AssetEntry> source = FindAsset(options.kuid);
  if (!source) return host.RefuseUnknown(options.kuid);
  ResultsLog log;
  const ZEBAssetHandle handle = ZEBCloneAsset(options.kuid, options.isNewVersion, &log);
  PrintLog(host.console(), log);
  if (handle.IsEmpty()) {
    const bool isExplained = log.ErrorCount() > 0;
    if (!isExplained) host.console().Error("The asset couldn't be cloned. Only a committed asset can be.");
    return ExitCode::kFailed;
  }
  const std::optional<AssetEntry> clone = FindAsset(handle.Record()->Kuid());
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject();
    json.Key("kuid").Text(clone->kuid.TagText());
    json.Key("source").Text(options.kuid.TagText());
    json.Key("edit_path").Text(clone->editPath);
    json.EndObject();
  } else {
    host.console().Out() << clone->kuid.TagText() << "  " << clone->editPath << '\n';
  }
  return ExitCode::kSuccess;
}

}  // namespace

void DeclareClone(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  AddKuid(command, "kuid", options->kuid, "Committed asset to clone")->required();
  command.add_flag("--new-version", options->isNewVersion,
                   "Its next version in place of an asset of its own; for its author alone");
  command.footer(
      "The new asset is open for edit; 'MorvexUtil commit' finishes it.\n"
      "Example:\n  MorvexHost clone 523841:1013:1 --new-version");
  command.callback([options, &run] { run = [options](Host& host) { return Clone(host, *options); }; });
}

}  // namespace morvex::host
