#include "host/asset_entry.h"

#include <array>
#include <ctime>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "engine/format.h"
#include "host/console.h"
#include "host/json_writer.h"
#include "host/visible_text.h"

namespace morvex::host {

std::optional<AssetEntry> FindAsset(const KUID& kuid) {
  const ZEBAssetLock lock(false);
  AssetEntry asset;
  if (!lock || !ZEBGetAssetStatus(kuid, asset.status)) return std::nullopt;
  const ZEBAssetInfo& record = *ZEBAssetCache::Instance().Find(kuid);
  asset.kuid = kuid;
  asset.keywords = record.Text(AssetText::kKeywords);
  asset.description = record.Text(AssetText::kDescription);
  asset.editPath = record.EditPath();
  asset.localPath = record.LocalPath();
  asset.packName = record.PackName();
  asset.packPath = record.PackPath();
  if (record.FolderSizeKnown()) asset.size = record.FolderSize();
  asset.build = record.Numbers().build;
  return asset;
}

void WriteAsset(JsonWriter& json, const AssetEntry& asset) {
  const ZEBAssetStatus& status = asset.status;
  json.BeginObject();
  json.Key("kuid").Text(asset.kuid.TagText());
  json.Key("name").Text(status.name);
  json.Key("category").Text(status.category);
  json.Key("label").Text(status.categoryName);
  json.Key("flags").Text(status.Letters());
  json.Key("region").Text(status.region);
  json.Key("era").Text(status.era);
  json.Key("keywords").Text(asset.keywords);
  json.Key("size").Number(asset.size);
  json.Key("build").Real(asset.build);
  json.Key("author").Number(status.author);
  json.Key("rating").Number(status.rating);
  json.Key("installed").Number(static_cast<int64_t>(status.installedTime));
  json.Key("modified").Number(static_cast<int64_t>(status.modifiedTime));
  json.Key("edit_path").Text(asset.editPath);
  json.Key("local_path").Text(asset.localPath);
  json.Key("pack_name").Text(asset.packName);
  json.Key("pack_path").Text(asset.packPath);
  json.EndObject();
}

std::string ShownName(const Console& console, std::string_view name) {
  return name.empty() ? console.Paint(Style::kDim, "(no name)") : VisibleText(name);
}

std::string CountText(uint64_t count) {
  std::string text = Nox::FormatText("%u", count);
  for (size_t at = text.size(); at > 3; at -= 3)
    text.insert(at - 3, 1, ',');
  return text;
}

std::string SizeText(int64_t bytes) {
  constexpr std::array<const char*, 4> kUnits = {"KB", "MB", "GB", "TB"};
  if (bytes < 0) return "unknown";
  if (bytes < 1000) return Nox::FormatText("%d B", bytes);
  double value = static_cast<double>(bytes) / 1000;
  size_t unit = 0;
  for (; value >= 999.95 && unit + 1 < kUnits.size(); ++unit)
    value /= 1000;
  return Nox::FormatText("%.1f %s", value, kUnits[unit]);
}

std::string TimeText(uint64_t seconds) {
  if (seconds == 0) return "-";
  const auto time = static_cast<std::time_t>(seconds);
  std::tm local{};
  localtime_r(&time, &local);
  std::array<char, 32> text{};
  const size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
  return std::string(text.data(), length);
}

}  // namespace morvex::host
