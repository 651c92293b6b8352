#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "database/catalogue/asset_info.h"
#include "tagdata/tag_container.h"

namespace morvex {

enum class AssetFolderKind { kBuiltIn = 0, kLocal = 1, kEditing = 2 };

// What one folder says of an asset.
struct FoundAsset {
  bool isAsset = false;  // it has a configuration with a KUID
  ZEBAssetInfo record;
  TagContainer config;
  int64_t configTime = 0;  // when the configuration was last changed, where the disk can tell
};

// Reads the folder at `path` of a mounted pack. Any thread.
FoundAsset ReadAssetFolder(std::string_view pack, const std::string& path, AssetFolderKind kind);

// Each of these adds the assets that it finds to the tables, which takes the write lock.

// The folders one level below the pack's root, in Find order, on two threads. Temporary folders come last, and
// count only for assets of which there is no other copy; such a one gets a proper name.
void ScanAssetFolders(std::string_view pack, AssetFolderKind kind);
// The folders two levels below the pack's root, as built-in assets.
void ScanPack(std::string_view pack);
// ScanPack for each pack, folder or archive, in the folder `world`.
void ScanWorldPacks();

}  // namespace morvex
