#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "database/catalogue/asset_status.h"
#include "tagdata/kuid.h"

namespace morvex::host {

class Console;
class JsonWriter;

// What the commands tell of one asset: its status, and the fields of its record that no status has.
struct AssetEntry {
  KUID kuid;
  ZEBAssetStatus status;
  std::string keywords;
  std::string description;
  std::string editPath;  // these two relative to the root; empty where there is no such copy
  std::string localPath;
  std::string packName;
  std::string packPath;
  int64_t size = -1;  // bytes; -1: not known
  float build = 0;    // 0: not known
};

// None for an unknown KUID. Takes the database lock.
std::optional<AssetEntry> FindAsset(const KUID& kuid);

// The object of an asset in the results of `list` and `show`.
void WriteAsset(JsonWriter& json, const AssetEntry& asset);

// The name of an asset as it can be shown, dimmed where it has none.
std::string ShownName(const Console& console, std::string_view name);

// "12,345".
std::string CountText(uint64_t count);
// "12.3 MB"; "unknown" below zero.
std::string SizeText(int64_t bytes);
// Day and time here, as "2024-05-31 14:05"; a dash for 0.
std::string TimeText(uint64_t seconds);

}  // namespace morvex::host
