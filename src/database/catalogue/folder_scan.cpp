#include "database/catalogue/folder_scan.h"

#include <utility>
#include <vector>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/config_reader.h"
#include "database/catalogue/database.h"
#include "database/catalogue/folder_size.h"
#include "database/catalogue/pack_table.h"
#include "database/catalogue/temporary_folders.h"
#include "engine/disk_folder.h"
#include "engine/find.h"
#include "engine/mounts.h"
#include "engine/parallel.h"
#include "engine/path.h"
#include "engine/text.h"

namespace morvex {
namespace {

constexpr unsigned kThreads = 2;
constexpr size_t kAhead = 256;  // folders read and waiting to be added

void SetPlace(ZEBAssetInfo& record, std::string_view pack, const std::string& path, AssetFolderKind kind) {
  const std::string full = Nox::Path::AddPath(pack, path);
  AssetTexts texts;
  const auto set = [&](AssetText which, std::string_view text) { texts[static_cast<size_t>(which)] = text; };
  switch (kind) {
    case AssetFolderKind::kBuiltIn:
      set(AssetText::kPackPath, path);
      set(AssetText::kPackName, pack);
      record.Set(AssetState::kDlsItem, true);
      record.Set(AssetFlag::kBuiltIn, true);
      break;
    case AssetFolderKind::kLocal:
      set(AssetText::kLocalPath, full);
      break;
    case AssetFolderKind::kEditing:
      set(AssetText::kEditPath, full);
      break;
  }
  record.SetTexts(texts);
}

// The configuration in a folder of the disk that is open anyway; the same choice as ReadConfig makes.
TagContainer ReadConfigIn(const Nox::DiskFolder& folder, int64_t& time) {
  for (const std::string_view wanted : {kConfigChump, kConfigText}) {
    const std::string_view name = folder.FindFile(wanted);
    const auto content = name.empty() ? std::nullopt : folder.Read(name, kMaxConfig);
    if (!content) continue;
    TagContainer config = wanted == kConfigText ? ParseConfigText(*content) : ParseConfigChump(*content);
    if (config.IsEmpty()) continue;
    time = folder.ChangeTime(name);
    return config;
  }
  return {};
}

void ReadFromDisk(const std::string& path, AssetFolderKind kind, FoundAsset& found) {
  Nox::DiskFolder folder;
  if (!folder.Open(path)) return;
  found.config = ReadConfigIn(folder, found.configTime);
  if (found.config.IsEmpty() || kind == AssetFolderKind::kBuiltIn) return;
  uint64_t size = folder.AddUpFiles();
  for (const std::string& name : folder.Folders())
    size += FolderSizeOnDisk(Nox::Path::AddPath(path, name));
  found.record.SetFolderSize(RecordSizeOf(size));
}

std::vector<std::string> FoldersIn(std::string_view pack, const std::string& path) {
  std::vector<std::string> names;
  const auto entries = Nox::ListFolder({Nox::PString(pack), path});
  if (!entries) return names;
  for (const Nox::DirEntry& entry : *entries) {
    if (entry.IsDir()) names.push_back(entry.name);
  }
  return names;
}

void AddAll(std::string_view pack, const std::vector<std::string>& paths, AssetFolderKind kind) {
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  Nox::ProduceInOrder<FoundAsset>(
      paths.size(), kThreads, kAhead, [&](size_t i) { return ReadAssetFolder(pack, paths[i], kind); },
      [&](size_t, FoundAsset&& found) {
        if (found.isAsset) cache.AddScanned(std::move(found.record), found.config);
        return true;
      });
}

}  // namespace

FoundAsset ReadAssetFolder(std::string_view pack, const std::string& path, AssetFolderKind kind) {
  FoundAsset found;
  SetPlace(found.record, pack, path, kind);
  const Nox::Location folder{Nox::PString(pack), path};
  if (const auto onDisk = Nox::ResolveHostPath(folder)) {
    ReadFromDisk(*onDisk, kind, found);
  } else {
    found.config = ReadConfig(folder);
  }
  found.isAsset = found.record.Fill(found.config, true);
  return found;
}

void ScanAssetFolders(std::string_view pack, AssetFolderKind kind) {
  const PackMount mount{Nox::PString(pack)};
  std::vector<std::string> lasting;
  std::vector<std::string> temporary;
  for (std::string& name : FoldersIn(pack, ""))
    (IsTemporaryFolder(name) ? temporary : lasting).push_back(std::move(name));
  AddAll(pack, lasting, kind);
  AddTemporaryFolders(pack, temporary, kind);
}

void ScanPack(std::string_view pack) {
  const PackMount mount{Nox::PString(pack)};
  std::vector<std::string> paths;
  for (const std::string& group : FoldersIn(pack, "")) {
    for (const std::string& asset : FoldersIn(pack, group))
      paths.push_back(Nox::Path::AddPath(group, asset));
  }
  AddAll(pack, paths, AssetFolderKind::kBuiltIn);
}

void ScanWorldPacks() {
  const auto entries = Nox::ListFolder(Nox::Path::AddPath(ZEBSettings().root, "world"));
  if (!entries) return;
  for (const Nox::DirEntry& entry : *entries) {
    const bool isArchive = !entry.IsDir() && Nox::Path::IsExt(entry.name, "ja");
    if (!entry.IsDir() && !isArchive) continue;
    const std::string name = isArchive ? Nox::Path::SetExt(entry.name, "") : entry.name;
    ScanPack("world/" + Nox::ToLower(name));
    ZEBReportProgress();
  }
}

}  // namespace morvex
