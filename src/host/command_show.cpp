// show: all that is known of assets, one after the other.

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "database/catalogue/author_names.h"
#include "engine/format.h"
#include "engine/number_text.h"
#include "host/arguments.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/json_writer.h"
#include "host/state_words.h"
#include "host/visible_text.h"

namespace morvex::host {

namespace {

void PrintField(const Console& console, std::string_view name, std::string_view value) {
  if (value.empty()) return;
  console.Out() << "  " << console.Paint(Style::kDim, Nox::FormatText("%-12s", name)) << VisibleText(value)
                << '\n';
}

std::string WithCodes(std::string_view words, std::string_view codes) {
  if (words.empty()) return std::string(codes);
  return std::string(words).append(" (").append(codes) + ")";
}

void PrintAsset(const Console& console, const AssetEntry& asset) {
  const ZEBAssetStatus& status = asset.status;
  console.Out() << console.Paint(Style::kBlue, asset.kuid.TagText()) << "  "
                << console.Paint(Style::kBold, ShownName(console, status.name)) << '\n';
  PrintField(console, "Category", WithCodes(status.categoryName, status.category));
  PrintField(console, "State", status.Letters() + "  " + StateWords(status));
  PrintField(console, "Author",
             WithCodes(Nox::FormatText("%d", status.author), ZEBAuthorName(status.author).View()));
  PrintField(console, "Regions", status.region);
  PrintField(console, "Eras", status.era);
  PrintField(console, "Keywords", asset.keywords);
  PrintField(console, "Size", SizeText(asset.size));
  if (asset.build > 0) PrintField(console, "Build", Nox::ShortestFloat(asset.build));
  if (status.rating >= 0) PrintField(console, "Rating", Nox::FormatText("%d of 5", status.rating));
  PrintField(console, "Installed", TimeText(status.installedTime));
  PrintField(console, "Modified", TimeText(status.modifiedTime));
  PrintField(console, "Open in", asset.editPath);
  PrintField(console, "Local copy", asset.localPath);
  if (!asset.packPath.empty()) PrintField(console, "Pack", asset.packName + ": " + asset.packPath);
  PrintField(console, "Description", asset.description);
}

ExitCode Show(Host& host, const std::vector<KUID>& kuids) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  ExitCode code = ExitCode::kSuccess;
  std::vector<AssetEntry> assets;
  for (const KUID& kuid : kuids) {
    std::optional<AssetEntry> asset = FindAsset(kuid);
    if (asset) {
      assets.push_back(std::move(*asset));
    } else {
      code = host.RefuseUnknown(kuid);
    }
  }
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject().Key("assets").BeginArray();
    for (const AssetEntry& asset : assets)
      WriteAsset(json, asset);
    json.EndArray().EndObject();
  } else {
    for (const AssetEntry& asset : assets)
      PrintAsset(host.console(), asset);
  }
  return code;
}

}  // namespace

void DeclareShow(CLI::App& command, Run& run) {
  const auto kuids = std::make_shared<std::vector<KUID>>();
  AddKuids(command, "kuid", *kuids, "Assets to show")->required();
  command.footer("Example:\n  MorvexHost show 523841:1007");
  command.callback([kuids, &run] { run = [kuids](Host& host) { return Show(host, *kuids); }; });
}

}  // namespace morvex::host
