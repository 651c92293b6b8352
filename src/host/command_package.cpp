// package: what is in a package file, whether it is sound, and its assets as folders.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "engine/file.h"
#include "engine/format.h"
#include "engine/path.h"
#include "host/arguments.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/interrupt.h"
#include "host/json_writer.h"
#include "host/package_content.h"
#include "host/paths.h"
#include "host/subcommand.h"
#include "host/visible_text.h"
#include "packages/file_extraction.h"
#include "packages/package_archive.h"
#include "packages/package_tags.h"
#include "tagdata/kuid_list.h"

namespace morvex::host {

namespace {

struct Options {
  std::string file;
  std::string folder = ".";
  std::vector<KUID> only;
};

// Opens a package; what stands against it is told, and is the exit code.
ExitCode Open(const Host& host, const std::string& name, TagContainer& package) {
  const std::string path = AbsolutePath(name);
  if (!Nox::File::Exists(path)) return host.Fail(ExitCode::kNotFound, "There is no file \"" + name + "\".");
  const Nox::PString fault = OpenArchive(package, {}, path);
  if (fault.Empty()) return ExitCode::kSuccess;
  return host.Fail(ExitCode::kFaulty, "\"" + name + "\": " + fault.Text() + ".");
}

void WriteTable(JsonWriter& json, const char* key, const TagContainer& table) {
  KUIDList kuids;
  kuids.FromContainer(table);
  json.Key(key).BeginArray();
  for (const KUID& kuid : kuids)
    json.Text(kuid.TagText());
  json.EndArray();
}

void WriteFiles(JsonWriter& json, const PackagedAsset& asset) {
  json.Key("files").BeginArray();
  for (const PackagedFile& file : asset.files) {
    json.BeginObject();
    json.Key("path").Text(file.path);
    json.Key("coded_size").Number(RawSize(file.coded));
    json.Key("plain_size").Number(file.plainSize);
    json.EndObject();
  }
  json.EndArray();
}

void WriteListing(JsonWriter& json, const TagContainer& package, const std::vector<PackagedAsset>& assets) {
  json.BeginObject();
  json.Key("kind").Text(package.GetText(PackageTags::kKind));
  json.Key("package_version").Number(package.GetInt(PackageTags::kVersion));
  WriteTable(json, "contents_table", package.GetContainer(PackageTags::kContentsTable));
  WriteTable(json, "kuid_table", package.GetContainer(PackageTags::kKuidTable));
  WriteTable(json, "obsolete_table", package.GetContainer(PackageTags::kObsoleteTable));
  json.Key("assets").BeginArray();
  for (const PackagedAsset& asset : assets) {
    json.BeginObject();
    json.Key("kuid").Text(asset.kuid.TagText());
    json.Key("name").Text(asset.name);
    json.Key("compression").Text(asset.item.GetCompression());
    json.Key("dsid").TextOrNull(asset.item.soup.GetText(PackageTags::kDsid));
    WriteFiles(json, asset);
    json.EndObject();
  }
  json.EndArray().EndObject();
}

void PrintListing(const Console& console, const TagContainer& package,
                  const std::vector<PackagedAsset>& assets) {
  for (const PackagedAsset& asset : assets) {
    const std::string compression = asset.item.GetCompression().Text();
    console.Out() << console.Paint(Style::kBlue, asset.kuid.TagText()) << "  "
                  << ShownName(console, asset.name) << "  "
                  << console.Paint(Style::kDim,
                                   compression.empty() ? "uncompressed" : VisibleText(compression))
                  << '\n';
    for (const PackagedFile& file : asset.files) {
      console.Out() << Nox::FormatText("  %10s  %10s  ", SizeText(RawSize(file.coded)),
                                       SizeText(file.plainSize))
                    << VisibleText(file.path) << '\n';
    }
  }
  KUIDList needed;
  needed.FromContainer(package.GetContainer(PackageTags::kKuidTable));
  for (const KUID& kuid : needed)
    console.Out() << "needs  " << console.Paint(Style::kBlue, kuid.TagText()) << '\n';
  console.Note(Nox::FormatText(assets.size() == 1 ? "%u asset" : "%u assets", assets.size()));
}

ExitCode ListPackage(Host& host, const Options& options) {
  TagContainer package;
  const ExitCode opened = Open(host, options.file, package);
  if (opened != ExitCode::kSuccess) return opened;
  const std::vector<PackagedAsset> assets = ReadAssets(package);
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    WriteListing(json, package, assets);
  } else {
    PrintListing(host.console(), package, assets);
  }
  return ExitCode::kSuccess;
}

void WriteFaults(JsonWriter& json, const std::vector<PackageFault>& faults, bool isSound) {
  json.BeginObject().Key("sound").Bool(isSound).Key("findings").BeginArray();
  for (const PackageFault& fault : faults) {
    json.BeginObject();
    json.Key("severity").Text(fault.isError ? "error" : "warning");
    json.Key("text").Text(fault.text);
    json.Key("kuid").TextOrNull(fault.asset);
    json.Key("file").TextOrNull(fault.file);
    json.EndObject();
  }
  json.EndArray().EndObject();
}

void PrintFaults(const Console& console, const std::vector<PackageFault>& faults, bool isSound) {
  for (const PackageFault& fault : faults) {
    console.Out() << (fault.isError ? console.Paint(Style::kRed, "error  ")
                                    : console.Paint(Style::kYellow, "warning"))
                  << "  ";
    if (!fault.asset.empty()) console.Out() << console.Paint(Style::kBlue, fault.asset) << ' ';
    if (!fault.file.empty()) console.Out() << VisibleText(fault.file);
    console.Out() << ": " << fault.text << '\n';
  }
  console.Out() << (isSound ? console.Paint(Style::kGreen, "sound") : console.Paint(Style::kRed, "damaged"))
                << '\n';
}

ExitCode VerifyPackage(Host& host, const Options& options) {
  TagContainer package;
  const ExitCode opened = Open(host, options.file, package);
  std::vector<PackageFault> faults;
  if (opened == ExitCode::kNotFound) return opened;
  if (opened == ExitCode::kSuccess) {
    faults = FindFaults(package, ReadAssets(package));
  } else {
    faults.push_back({true, {}, {}, "The file isn't a package that can be read"});
  }
  const bool isSound =
      std::none_of(faults.begin(), faults.end(), [](const PackageFault& fault) { return fault.isError; });
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    WriteFaults(json, faults, isSound);
  } else {
    PrintFaults(host.console(), faults, isSound);
  }
  return isSound ? ExitCode::kSuccess : ExitCode::kFaulty;
}

// Empty, or what went wrong.
std::string Extract(const PackageItem& item, const std::string& folder) {
  if (Nox::File::Exists(folder)) return "it is there already; choose another folder with --to";
  if (!Nox::File::Md(folder)) return "the folder can't be made";
  const Nox::PString fault = ExtractFiles(item.GetFiles(), item.GetCompression(), folder);
  if (!fault.Empty()) return fault.Text();
  TagContainer config;
  item.ExtractConfig(config);
  if (!config.Save({}, Nox::Path::AddPath(folder, "config.txt"))) return "config.txt couldn't be written";
  return {};
}

ExitCode ExtractPackage(Host& host, const Options& options) {
  TagContainer package;
  const ExitCode opened = Open(host, options.file, package);
  if (opened != ExitCode::kSuccess) return opened;

  const Console& console = host.console();
  const ArchiveAssets items(package);
  std::vector<KUID> unseen = options.only;
  ProgressBar progress(console, "Unpacking", items.Count());
  ExitCode code = ExitCode::kSuccess;
  for (uint32_t i = 0; i < items.Count() && !IsInterrupted(); ++i) {
    const PackageItem item = items.At(i);
    const KUID kuid = item.GetKUID();
    progress.Advance();
    const bool isWanted = options.only.empty() || std::erase(unseen, kuid) > 0;
    if (!isWanted) continue;
    const std::string folder = Nox::Path::AddPath(AbsolutePath(options.folder), kuid.ToFileName());
    const std::string fault = Extract(item, folder);
    if (fault.empty()) {
      if (!host.WantsJson()) console.Out() << VisibleText(folder) << '\n';
    } else {
      code = host.Fail(ExitCode::kFailed, "\"" + folder + "\": " + fault + ".");
    }
  }
  for (const KUID& kuid : unseen)
    code = host.Fail(ExitCode::kNotFound, "The package doesn't hold " + kuid.TagText() + ".");
  return code;
}

}  // namespace

void DeclarePackage(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* const list =
      AddSubcommand(command, run, options, "list", "List the assets and files of a package", &ListPackage);
  CLI::App* const verify =
      AddSubcommand(command, run, options, "verify",
                    "Decode all files and compare the package with its tables", &VerifyPackage);
  CLI::App* const extract =
      AddSubcommand(command, run, options, "extract",
                    "Write the assets of a package into folders, a folder each", &ExtractPackage);
  for (CLI::App* const action : {list, verify, extract})
    action->add_option("file", options->file, "Package, a .cdp")->required()->type_name("FILE");
  extract->add_option("--to", options->folder, "Folder for the assets' folders; the current one without it")
      ->type_name("FOLDER");
  AddKuids(*extract, "--only", options->only, "Only these assets");
  command.footer("Example:\n  MorvexHost package extract valley.cdp --to ~/unpacked");
}

}  // namespace morvex::host
