#include "database/catalogue/folder_size.h"

#include <string>
#include <utility>
#include <vector>

#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/pack_table.h"
#include "engine/disk_folder.h"
#include "engine/find.h"
#include "engine/name_lookup.h"
#include "engine/path.h"

namespace morvex {
namespace {

// The same through the pack, which may be an archive.
uint64_t FolderSizeInPack(const Nox::Location& folder) {
  uint64_t total = 0;
  std::vector<std::string> waiting = {folder.path};
  while (!waiting.empty()) {
    const std::string path = std::move(waiting.back());
    waiting.pop_back();
    const auto entries = Nox::ListFolder({folder.pack, path});
    if (!entries) continue;
    for (const Nox::DirEntry& entry : *entries) {
      const std::string below = Nox::Path::AddPath(path, entry.name);
      if (entry.IsDir() && !entry.isLink) waiting.push_back(below);
      if (!entry.IsDir()) total += Nox::File::SizeOf({folder.pack, below}).value_or(0);
    }
  }
  return total;
}

}  // namespace

uint64_t FolderSizeOnDisk(std::string_view path) {
  uint64_t total = 0;
  std::vector<std::string> waiting = {Nox::FindExisting(path).value_or(std::string(path))};
  while (!waiting.empty()) {
    const std::string next = std::move(waiting.back());
    waiting.pop_back();
    Nox::DiskFolder folder;
    if (!folder.Open(next)) continue;
    total += folder.AddUpFiles();
    for (const std::string& name : folder.Folders())
      waiting.push_back(Nox::Path::AddPath(next, name));
  }
  return total;
}

uint32_t RecordSizeOf(uint64_t bytes) {
  constexpr uint32_t kLargest = ZEBAssetInfo::kSizeNotYetKnown - 1;
  return bytes > kLargest ? kLargest : static_cast<uint32_t>(bytes);
}

uint32_t AssetFolderSize(const ZEBAssetInfo& record) {
  if (record.HasLocalCopy()) return RecordSizeOf(FolderSizeOnDisk(LocalLocation(record).path));
  if (record.Has(AssetFlag::kBuiltIn)) return 0;
  if (record.IsInPack()) {
    const Nox::Location location = PackLocation(record);
    const PackMount mount(location.pack);
    return RecordSizeOf(FolderSizeInPack(location));
  }
  if (record.IsOpen()) return RecordSizeOf(FolderSizeOnDisk(EditLocation(record).path));
  return ZEBAssetInfo::kSizeUnknown;
}

}  // namespace morvex
