#include "database/catalogue/temporary_folders.h"

#include <algorithm>
#include <utility>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/database.h"
#include "database/catalogue/pack_table.h"
#include "engine/file.h"
#include "engine/find.h"
#include "engine/path.h"
#include "tagdata/temporary_path.h"

namespace morvex {
namespace {

constexpr std::string_view kPrefix = "temp";
constexpr size_t kRandomCharacters = 8;

struct Copy {
  std::string name;
  FoundAsset asset;
};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

AssetText PathOf(AssetFolderKind kind) {
  return kind == AssetFolderKind::kLocal ? AssetText::kLocalPath : AssetText::kEditPath;
}

// The temporary folders that hold an asset, the newest first: the new content is always finished after the old.
std::vector<Copy> CopiesIn(std::string_view pack, const std::vector<std::string>& names,
                           AssetFolderKind kind) {
  std::vector<Copy> copies;
  for (const std::string& name : names) {
    FoundAsset asset = ReadAssetFolder(pack, name, kind);
    if (asset.isAsset) copies.push_back({name, std::move(asset)});
  }
  std::stable_sort(copies.begin(), copies.end(),
                   [](const Copy& a, const Copy& b) { return a.asset.configTime > b.asset.configTime; });
  return copies;
}

std::vector<std::string> TemporaryIn(std::string_view pack) {
  std::vector<std::string> names;
  const auto entries = Nox::ListFolder({Nox::PString(pack), ""});
  if (!entries) return names;
  for (const Nox::DirEntry& entry : *entries) {
    if (entry.IsDir() && IsTemporaryFolder(entry.name)) names.push_back(entry.name);
  }
  return names;
}

void PutBackIn(std::string_view pack, AssetFolderKind kind) {
  const PackMount mount{Nox::PString(pack)};
  const std::string& root = ZEBSettings().root;
  for (const Copy& copy : CopiesIn(pack, TemporaryIn(pack), kind)) {
    const ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(copy.asset.record.Kuid());
    if (record == nullptr || record->Text(PathOf(kind)).empty()) continue;
    const std::string wanted = Nox::Path::AddPath(root, record->Text(PathOf(kind)));
    const std::string folder = Nox::Path::AddPath(root, pack);
    if (!Nox::Path::IsBelow(folder, wanted) || Nox::File::Exists(wanted)) continue;
    Nox::File::Rename(Nox::Path::AddPath(folder, copy.name), wanted);
  }
}

// A proper name for the folder; its own if it can't get one.
std::string NameProperly(std::string_view pack, const std::string& name, AssetFolderKind kind) {
  const std::string folder = Nox::Path::AddPath(ZEBSettings().root, pack);
  const char* prefix = kind == AssetFolderKind::kLocal ? "content " : "edit ";
  std::string proper;
  if (!CreateTemporaryFilePath(Nox::PString(), folder, prefix, {}, proper)) return name;
  if (!Nox::File::Rename(Nox::Path::AddPath(folder, name), proper)) return name;
  return std::string(Nox::Path::GetFileName(proper));
}

}  // namespace

bool IsTemporaryFolder(std::string_view name) {
  if (!name.starts_with(kPrefix)) return false;
  const std::string_view rest = name.substr(kPrefix.size());
  if (rest.size() <= kRandomCharacters) return false;
  const auto isRandom = [](char c) { return IsDigit(c) || (c >= 'a' && c <= 'z'); };
  return std::all_of(rest.begin(), rest.begin() + kRandomCharacters, isRandom) &&
         std::all_of(rest.begin() + kRandomCharacters, rest.end(), IsDigit);
}

void PutBackTemporaryFolders() {
  PutBackIn("local", AssetFolderKind::kLocal);
  PutBackIn("editing", AssetFolderKind::kEditing);
}

void AddTemporaryFolders(std::string_view pack, const std::vector<std::string>& names, AssetFolderKind kind) {
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  for (const Copy& copy : CopiesIn(pack, names, kind)) {
    const ZEBAssetInfo* known = cache.Find(copy.asset.record.Kuid());
    if (known != nullptr && !known->Text(PathOf(kind)).empty()) continue;
    FoundAsset found = ReadAssetFolder(pack, NameProperly(pack, copy.name, kind), kind);
    if (found.isAsset) cache.AddScanned(std::move(found.record), found.config);
  }
}

}  // namespace morvex
