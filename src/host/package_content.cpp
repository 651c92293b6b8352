#include "host/package_content.h"

#include <unordered_set>

#include "engine/byte_reader.h"
#include "engine/parallel.h"
#include "engine/path.h"
#include "packages/file_coding.h"
#include "packages/file_rules.h"
#include "packages/package_archive.h"
#include "packages/package_tags.h"
#include "tagdata/kuid_list.h"
#include "tagdata/soup_walk.h"
#include "validation/categories/asset_name.h"

namespace morvex::host {

namespace Path = Nox::Path;

namespace {

// The rules of names hold for each folder on the way, the list of types for the file.
const char* FaultOfName(std::string_view path) {
  std::string_view rest = path;
  while (!rest.empty()) {
    const size_t end = rest.find(Path::kSeparator);
    if (!IsValidName(rest.substr(0, end))) return "The name isn't allowed; an install leaves the file out";
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  }
  return HasAllowedExtension(path) ? nullptr : "The type isn't allowed; an install leaves the file out";
}

// A coded file begins with its plain size.
int64_t PlainSizeOf(const Raw& raw, std::string_view compression) {
  if (compression.empty()) return RawSize(raw);
  Nox::ByteReader reader({RawData(raw), RawSize(raw)});
  const uint32_t size = reader.U32();
  return reader.Failed() ? -1 : int64_t{size};
}

std::vector<PackagedFile> ReadFiles(const PackageItem& item) {
  std::vector<PackagedFile> files;
  const TagContainer soup = item.GetFiles();
  if (soup.IsEmpty()) return files;
  const std::string compression = item.GetCompression().Text();
  std::string folder;
  SoupWalk walk(*soup.Chunk());
  while (walk.Next()) {
    switch (walk.What()) {
      case SoupWalk::Event::kEnter:
        folder = Path::AddPath(folder, walk.Name());
        break;
      case SoupWalk::Event::kLeave:
        folder = Path::PrevDir(folder);
        break;
      case SoupWalk::Event::kLeaf: {
        PackagedFile file;
        file.path = Path::AddPath(folder, walk.Name());
        file.isData = walk.Chunk()->GetKind() == ChunkKind::kBinary;
        file.coded = walk.Chunk()->GetRawData();
        file.plainSize = PlainSizeOf(file.coded, compression);
        files.push_back(std::move(file));
        break;
      }
    }
  }
  return files;
}

const char* FaultOfData(const PackagedFile& file, std::string_view compression) {
  if (!file.isData) return "This is no file; the package may be damaged";
  switch (DecodeFile(file.coded, compression).failure) {
    case CodingFailure::kNone:
      return nullptr;
    case CodingFailure::kTooLarge:
      return "There isn't enough memory to decode the file";
    case CodingFailure::kUnknownCompression:
      return "The compression is unknown; the package may be damaged";
    default:
      return "The file can't be decoded; the package is damaged";
  }
}

void CheckFiles(const PackagedAsset& asset, std::vector<PackageFault>& faults) {
  const std::string compression = asset.item.GetCompression().Text();
  std::vector<const char*> damage(asset.files.size(), nullptr);
  Nox::ParallelFor(asset.files.size(), Nox::WorkerCount(),
                   [&](size_t i) { damage[i] = FaultOfData(asset.files[i], compression); });
  for (size_t i = 0; i < asset.files.size(); ++i) {
    const std::string& path = asset.files[i].path;
    if (damage[i] != nullptr) faults.push_back({true, asset.kuid.TagText(), path, damage[i]});
    if (const char* const fault = FaultOfName(path))
      faults.push_back({false, asset.kuid.TagText(), path, fault});
  }
}

void CheckAsset(const PackagedAsset& asset, std::vector<PackageFault>& faults) {
  const std::string kuid = asset.kuid.TagText();
  if (asset.kuid.IsNull()) faults.push_back({true, kuid, {}, "The asset has no KUID"});
  if (asset.item.GetFiles().IsEmpty()) faults.push_back({false, kuid, {}, "The asset has no files"});
  const bool hasFingerprint = asset.item.soup.HasTag(PackageTags::kDsid);
  if (hasFingerprint && !asset.item.CheckDsid())
    faults.push_back({true, kuid, {}, "The files aren't those that the fingerprint (dsid) was made of"});
  CheckFiles(asset, faults);
}

void CheckTables(const TagContainer& package, const std::vector<PackagedAsset>& assets,
                 std::vector<PackageFault>& faults) {
  KUIDList listed;
  listed.FromContainer(package.GetContainer(PackageTags::kContentsTable));
  std::unordered_set<KUID> held;
  for (const PackagedAsset& asset : assets) {
    if (!held.insert(asset.kuid).second)
      faults.push_back({true, asset.kuid.TagText(), {}, "The package holds the asset twice"});
    if (!listed.Contains(asset.kuid))
      faults.push_back({false, asset.kuid.TagText(), {}, "The table of contents lacks the asset"});
  }
  for (const KUID& kuid : listed) {
    if (!held.contains(kuid))
      faults.push_back(
          {false, kuid.TagText(), {}, "The table of contents names the asset, and it isn't there"});
  }
}

}  // namespace

std::vector<PackagedAsset> ReadAssets(const TagContainer& package) {
  std::vector<PackagedAsset> assets;
  const ArchiveAssets items(package);
  for (uint32_t i = 0; i < items.Count(); ++i) {
    PackageItem item = items.At(i);
    PackagedAsset asset{item.GetKUID(), GetAssetName(item.soup, {}), item, ReadFiles(item)};
    assets.push_back(std::move(asset));
  }
  return assets;
}

std::vector<PackageFault> FindFaults(const TagContainer& package, const std::vector<PackagedAsset>& assets) {
  std::vector<PackageFault> faults;
  CheckTables(package, assets, faults);
  for (const PackagedAsset& asset : assets)
    CheckAsset(asset, faults);
  return faults;
}

}  // namespace morvex::host
