#pragma once

#include <cstdint>
#include <string_view>

namespace morvex {

class ZEBAssetInfo;

// The sizes of all files in a folder of the disk, at any depth, added up. Links to folders aren't followed. 0 if
// there is no such folder.
uint64_t FolderSizeOnDisk(std::string_view path);

// Bytes as a record holds them; more than it can hold is its largest size.
uint32_t RecordSizeOf(uint64_t bytes);

// The size of an asset: that of its local copy, else of its pack or edit copy; 0 for a built-in asset without a
// local copy, and unknown without a copy.
uint32_t AssetFolderSize(const ZEBAssetInfo& record);

}  // namespace morvex
