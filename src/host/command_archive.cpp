// archive: files that hold assets which were taken off the disk.

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "database/operations/archives.h"
#include "engine/path.h"
#include "frontend/messages/results_log.h"
#include "host/arguments.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/json_writer.h"
#include "host/log_messages.h"
#include "host/paths.h"
#include "host/subcommand.h"
#include "host/visible_text.h"

namespace morvex::host {

namespace {

struct Options {
  std::string file;
  std::string name;
  std::vector<KUID> kuids;
};

KUIDList ListOf(const std::vector<KUID>& kuids) {
  KUIDList list;
  for (const KUID& kuid : kuids)
    list.AddUnique(kuid);
  return list;
}

void WriteKuids(JsonWriter& json, const char* key, const KUIDList& kuids) {
  json.Key(key).BeginArray();
  for (const KUID& kuid : kuids)
    json.Text(kuid.TagText());
  json.EndArray();
}

void WriteArchives(JsonWriter& json, const std::vector<ArchiveStatus>& archives) {
  json.Key("archives").BeginArray();
  for (const ArchiveStatus& archive : archives) {
    json.BeginObject();
    json.Key("name").Text(archive.name);
    json.Key("path").Text(archive.path);
    json.Key("serial").Number(archive.serial);
    json.Key("size").Number(static_cast<int64_t>(archive.totalSize));
    json.Key("at_hand").Bool(archive.atHand);
    WriteKuids(json, "kuids", archive.kuids);
    json.EndObject();
  }
  json.EndArray();
}

void PrintArchives(const Console& console, const std::vector<ArchiveStatus>& archives) {
  for (const ArchiveStatus& archive : archives) {
    console.Out() << console.Paint(Style::kBold, VisibleText(archive.name)) << "  "
                  << CountText(archive.kuids.Count()) << " assets, "
                  << SizeText(static_cast<int64_t>(archive.totalSize)) << "  " << VisibleText(archive.path);
    if (!archive.atHand) console.Out() << "  " << console.Paint(Style::kRed, "not at hand");
    console.Out() << '\n';
  }
}

const char* FailureOf(ArchiveResult result) {
  switch (result) {
    case ArchiveResult::kMade:
      return nullptr;
    case ArchiveResult::kExists:
      return "There is a file of that name already. Choose another one.";
    case ArchiveResult::kRefused:
      return "The assets are more than one archive takes. Make several.";
    case ArchiveResult::kNotPackaged:
      return "No archive was made, because of the assets named above.";
    case ArchiveResult::kNotWritten:
      return "The archive couldn't be written. Check its folder and the free space.";
  }
  return nullptr;
}

ExitCode Create(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  const std::string path = AbsolutePath(options.file);
  const std::string name = options.name.empty() ? std::string(Nox::Path::GetFileName(path)) : options.name;
  ResultsLog log;
  const ArchiveResult result = ZEBCreateArchive(path, name, ListOf(options.kuids), &log);
  PrintLog(host.console(), log);
  if (const char* const failure = FailureOf(result)) return host.Fail(ExitCode::kFailed, failure);
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject().Key("path").Text(path).Key("name").Text(name);
    WriteKuids(json, "kuids", ListOf(options.kuids));
    json.EndObject();
  } else {
    host.console().Note(CountText(options.kuids.size()) + " assets in \"" + path + "\".");
  }
  return ExitCode::kSuccess;
}

// Of one file its KUIDs; without a file all archives that the installation knows.
ExitCode List(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  if (options.file.empty()) {
    const std::vector<ArchiveStatus> archives = ZEBListArchives();
    if (host.WantsJson()) {
      JsonWriter json(host.console().Out());
      json.BeginObject();
      WriteArchives(json, archives);
      json.EndObject();
    } else {
      PrintArchives(host.console(), archives);
    }
    return ExitCode::kSuccess;
  }
  ResultsLog log;
  KUIDList kuids;
  const bool isRead = ZEBReadArchive(AbsolutePath(options.file), kuids, &log);
  PrintLog(host.console(), log);
  if (!isRead) return ExitCode::kFaulty;
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject();
    WriteKuids(json, "kuids", kuids);
    json.EndObject();
  } else {
    for (const KUID& kuid : kuids)
      host.console().Out() << kuid.TagText() << '\n';
  }
  return ExitCode::kSuccess;
}

ExitCode Restore(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  const std::string path = AbsolutePath(options.file);
  ResultsLog log;
  KUIDList wanted = ListOf(options.kuids);
  if (wanted.IsEmpty() && !ZEBReadArchive(path, wanted, &log)) {
    PrintLog(host.console(), log);
    return ExitCode::kFaulty;
  }
  const KUIDList asked = wanted;
  ZEBRestoreFromArchive(wanted, path, &log, nullptr);
  PrintLog(host.console(), log);
  if (host.WantsJson()) {
    KUIDList restored;
    for (const KUID& kuid : asked) {
      if (!wanted.Contains(kuid)) restored.Add(kuid);
    }
    JsonWriter json(host.console().Out());
    json.BeginObject();
    WriteKuids(json, "restored", restored);
    WriteKuids(json, "not_restored", wanted);
    json.EndObject();
  }
  ExitCode code = ExitCode::kSuccess;
  for (const KUID& kuid : wanted)
    code = host.Fail(ExitCode::kFailed, kuid.TagText() + " was not restored.");
  return code;
}

ExitCode Select(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  KUIDList wanted = ListOf(options.kuids);
  const std::vector<ArchiveStatus> chosen = ZEBSelectArchives(wanted);
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject();
    WriteArchives(json, chosen);
    WriteKuids(json, "not_archived", wanted);
    json.EndObject();
  } else {
    PrintArchives(host.console(), chosen);
  }
  ExitCode code = ExitCode::kSuccess;
  for (const KUID& kuid : wanted)
    code = host.Fail(ExitCode::kNotFound, kuid.TagText() + " is in no archive.");
  return code;
}

}  // namespace

void DeclareArchive(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* const create =
      AddSubcommand(command, run, options, "create", "Make an archive file of assets", &Create);
  create->add_option("file", options->file, "Archive file to make")->required()->type_name("FILE");
  AddKuids(*create, "kuid", options->kuids, "Committed assets")->required();
  create->add_option("--name", options->name, "Name to show; that of the file without it")->type_name("TEXT");

  CLI::App* const list = AddSubcommand(command, run, options, "list",
                                       "List the archives that are known, or what is in one", &List);
  list->add_option("file", options->file, "Archive file")->type_name("FILE");

  CLI::App* const restore =
      AddSubcommand(command, run, options, "restore", "Install assets out of an archive file", &Restore);
  restore->add_option("file", options->file, "Archive file")->required()->type_name("FILE");
  AddKuids(*restore, "kuid", options->kuids, "Assets; all that are in the file without them");

  CLI::App* const select = AddSubcommand(command, run, options, "select",
                                         "Tell which archives must be at hand for assets", &Select);
  AddKuids(*select, "kuid", options->kuids, "Assets")->required();
  command.footer("Example:\n  MorvexHost archive create ~/old.arc 523841:1013 523841:1014");
}

}  // namespace morvex::host
