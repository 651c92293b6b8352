// station: what the download station offers and knows.

#include <CLI/CLI.hpp>
#include <chrono>
#include <memory>
#include <string>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/author_names.h"
#include "engine/file.h"
#include "engine/number_text.h"
#include "engine/read_file.h"
#include "engine/time.h"
#include "host/arguments.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/interrupt.h"
#include "host/json_writer.h"
#include "host/network.h"
#include "host/paths.h"
#include "host/subcommand.h"
#include "host/visible_text.h"
#include "net/station/download_station.h"
#include "net/station/service_urls.h"

namespace morvex::host {

namespace {

constexpr unsigned kPollMs = 20;

struct Options {
  NetworkOptions network;
  KUID kuid;
  int32_t author = 0;
  std::string out;
};

DownloadStationState StationState() {
  const ZEBAssetLock lock(false);
  return ZEBAssetCache::Instance().station;
}

double Seconds() {
  using std::chrono::steady_clock;
  return std::chrono::duration<double>(steady_clock::now().time_since_epoch()).count();
}

// Lets the client work until it has nothing left to do. False, with the reasons told, once something went wrong.
bool RunStation(const Console& console, ZEBDownloadStation& station) {
  ProgressBar progress(console, "Asking the station", 0);
  while (!station.IsDone()) {
    if (IsInterrupted()) return false;
    station.Idle(Seconds());
    if (const DownloadTask* const list = station.ListTask())
      progress.ShowOf(list->GetBytesReceived(), list->GetTotalBytes());
    const std::string failures = station.TakeFailures();
    if (!failures.empty()) {
      console.Error(failures);
      return false;
    }
    Nox::Delay(kPollMs);
  }
  return true;
}

ExitCode EndCode(bool isDone) {
  if (isDone) return ExitCode::kSuccess;
  return IsInterrupted() ? ExitCode::kInterrupted : ExitCode::kFailed;
}

void TellState(const Host& host) {
  const DownloadStationState state = StationState();
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject();
    json.Key("last_update").Number(static_cast<int64_t>(state.lastUpdateTime));
    json.Key("last_file").Text(state.lastReceivedFile);
    json.Key("queued").BeginArray();
    for (const std::string& url : state.queuedUrls)
      json.Text(url);
    json.EndArray().EndObject();
    return;
  }
  host.console().Out() << "last update  " << TimeText(state.lastUpdateTime) << "\nlast list    "
                       << VisibleText(state.lastReceivedFile) << '\n';
  for (const std::string& url : state.queuedUrls)
    host.console().Out() << "to be read   " << VisibleText(url) << '\n';
}

ExitCode Update(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  const auto downloads = MakeDownloads(options.network, InstallationCache());
  ZEBDownloadStation station(*downloads);
  if (station.IsTooSoon())
    host.console().Note("The last update is less than six hours old, so only what was left of it is read.");
  station.RequestUpdate();
  const bool isDone = RunStation(host.console(), station);
  TellState(host);
  return EndCode(isDone);
}

ExitCode Lists(Host& host, const Options&) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  TellState(host);
  return ExitCode::kSuccess;
}

const char* TicketWord(uint32_t state) {
  switch (state) {
    case DownloadStationState::kNoTicket:
      return "none";
    case DownloadStationState::kActive:
      return "active";
    case DownloadStationState::kSuspended:
      return "suspended";
    default:
      return "unknown";
  }
}

ExitCode Ticket(Host& host, const Options&) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  const DownloadStationState state = StationState();
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject().Key("ticket").Text(TicketWord(state.ticketState));
    json.Key("seconds").Real(state.ticketSeconds).EndObject();
  } else {
    host.console().Out() << TicketWord(state.ticketState);
    if (state.ticketSeconds > 0)
      host.console().Out() << ", " << Nox::FormatFloat(state.ticketSeconds, 0) << " seconds left";
    host.console().Out() << '\n';
  }
  return ExitCode::kSuccess;
}

ExitCode Author(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  const auto downloads = MakeDownloads(options.network, InstallationCache());
  ZEBDownloadStation station(*downloads);
  const Nox::PString unknown("#" + std::to_string(options.author));
  const bool isDone = ZEBAuthorName(options.author) != unknown || RunStation(host.console(), station);
  const std::string name = ZEBAuthorName(options.author).Text();
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject().Key("author").Number(options.author).Key("name").Text(name).EndObject();
  } else {
    host.console().Out() << VisibleText(name) << '\n';
  }
  return EndCode(isDone);
}

// Waits for a file of the cache, where it stays as long as the task is held. False, with the reason told, if it
// doesn't come.
bool Receive(const Host& host, DownloadTask& task, const std::string& what, std::string& path) {
  host.LetOthersIn();
  Nox::PString name;
  return WaitFor(host.console(), task, what) && task.GetResult(path, name);
}

ExitCode Description(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  const auto downloads = MakeDownloads(options.network, InstallationCache());
  const DownloadHandle task =
      downloads->RequestDownload(DescriptionUrl(downloads->Settings().webServer, options.kuid));
  std::string path;
  if (!Receive(host, *task, "Description", path)) return EndCode(false);
  const auto bytes = Nox::ReadWholeFile(path, size_t{16} << 20);
  const std::string text = bytes ? std::string(bytes->Text()) : std::string();
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject().Key("kuid").Text(options.kuid.TagText()).Key("description").Text(text).EndObject();
  } else {
    host.console().Out() << VisibleText(text) << '\n';
  }
  return ExitCode::kSuccess;
}

ExitCode Thumbnail(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  const auto downloads = MakeDownloads(options.network, InstallationCache());
  const DownloadHandle task =
      downloads->RequestDownload(ThumbnailUrl(downloads->Settings().webServer, options.kuid));
  std::string path;
  if (!Receive(host, *task, "Thumbnail", path)) return EndCode(false);
  const std::string target =
      AbsolutePath(options.out.empty() ? options.kuid.ToFileName() + ".jpg" : options.out);
  if (!Nox::File::CopyFile(path, target))
    return host.Fail(ExitCode::kFailed,
                     "\"" + target + "\" couldn't be written. Check its folder and the free space.");
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject().Key("kuid").Text(options.kuid.TagText()).Key("path").Text(target).EndObject();
  } else {
    host.console().Out() << VisibleText(target) << '\n';
  }
  return ExitCode::kSuccess;
}

}  // namespace

void DeclareStation(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* const update =
      AddSubcommand(command, run, options, "update", "Bring the list of what it offers up to date", &Update);
  AddServerOptions(*update, options->network);
  AddSubcommand(command, run, options, "lists", "Tell which lists were read, and which are still to be",
                &Lists);
  CLI::App* const description =
      AddSubcommand(command, run, options, "description", "Print its description of an asset", &Description);
  AddKuid(*description, "kuid", options->kuid, "Asset")->required();
  AddServerOptions(*description, options->network);
  CLI::App* const thumbnail =
      AddSubcommand(command, run, options, "thumbnail", "Save its picture of an asset", &Thumbnail);
  AddKuid(*thumbnail, "kuid", options->kuid, "Asset")->required();
  thumbnail->add_option("-o,--out", options->out, "File to write; without it one named by the KUID")
      ->type_name("FILE");
  AddServerOptions(*thumbnail, options->network);
  AddSubcommand(command, run, options, "ticket", "Tell the state of the ticket as of the last update",
                &Ticket);
  CLI::App* const author =
      AddSubcommand(command, run, options, "author", "Tell the name of an author", &Author);
  author->add_option("number", options->author, "Author's number")->required()->type_name("NUMBER");
  AddServerOptions(*author, options->network);
  command.footer("Example:\n  MorvexHost station update --server station.example");
}

}  // namespace morvex::host
