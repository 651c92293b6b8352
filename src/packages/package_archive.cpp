#include "packages/package_archive.h"

#include <utility>

#include "engine/format.h"
#include "packages/package_tags.h"
#include "tagdata/chump_file.h"

namespace morvex {
namespace {

using namespace PackageTags;

// Null or the text of what is wrong with a loaded package; the first finding decides.
const char* FindFault(const TagContainer& archive) {
  if (!archive.GetString(kKind).EqualsIgnoreCase(kArchiveKind))
    return "Content could not be read, as the file is not a valid CDP";
  if (archive.GetContainer(kContentsTable).GetCount() != archive.GetContainer(kAssets).GetCount())
    return "Content could not be read, as the CDP file is damaged";
  if (archive.GetInt(kVersion, 0) != kPackageVersion) return "This content requires a newer Morvex version";
  return nullptr;
}

Nox::PString RefuseWithoutKuid() {
  return Nox::PString("Unable to add content as it doesnt not contain a valid KUID");
}

Nox::PString RefuseDuplicate(const KUID& kuid) {
  return Nox::PString(
      Nox::FormatText("Unable to add content as an item with KUID %s is already present", kuid.TagText()));
}

}  // namespace

Nox::PString OpenArchive(TagContainer& archive, Nox::PString base, std::string_view path) {
  archive.Clear();
  // A file that can't be read leaves nothing, which isn't a package.
  (void)archive.Load(base, path);
  const char* fault = FindFault(archive);
  if (fault == nullptr) return Nox::PString();
  archive.Clear();
  return Nox::PString(fault);
}

Nox::PString SaveArchive(const TagContainer& archive, std::string_view path) {
  if (archive.Save(Nox::PString(), path)) return Nox::PString();
  return Nox::PString("Unable to write archive file. Needs to be .cdp file extension");
}

bool ReadFromStream(TagContainer& archive, TStream& stream) {
  TagContainer read = ReadChumpFile(stream);
  if (read.IsValid()) archive = std::move(read);
  return true;
}

bool WriteToStream(const TagContainer& archive, TStream& stream) {
  (void)WriteChumpFile(archive, stream);
  return true;
}

ArchiveAssets::ArchiveAssets(const TagContainer& archive) : assets_(archive.GetContainer(kAssets)) {}

uint32_t GetAssetCount(const TagContainer& archive) {
  return ArchiveAssets(archive).Count();
}

PackageItem GetAssetAt(const TagContainer& archive, uint32_t index) {
  return ArchiveAssets(archive).At(index);
}

int32_t FindAsset(const TagContainer& archive, const KUID& kuid) {
  const ArchiveAssets assets(archive);
  for (uint32_t i = 0; i < assets.Count(); ++i) {
    if (assets.At(i).GetKUID() == kuid) return static_cast<int32_t>(i);
  }
  return -1;
}

Nox::PString AddAsset(TagContainer& archive, const PackageItem& item) {
  const KUID kuid = item.GetKUID();
  if (kuid.IsNull()) return RefuseWithoutKuid();
  if (FindAsset(archive, kuid) != -1) return RefuseDuplicate(kuid);
  TagContainer assets = archive.GetContainer(kAssets);
  assets.SetContainer(kuid.ToTagString(), TagContainer(item.soup));
  archive.SetContainer(kAssets, std::move(assets));
  RebuildTables(archive);
  return Nox::PString();
}

Nox::PString RemoveAsset(TagContainer& archive, uint32_t index) {
  TagContainer assets = archive.GetContainer(kAssets);
  const Nox::PString name = assets.GetName(index);
  if (!assets.HasTag(name)) return Nox::PString("Unable to remove specified asset");
  assets.Remove(name);
  RebuildTables(archive);
  return Nox::PString();
}

void RebuildTables(TagContainer& archive) {
  PackageTables tables;
  const ArchiveAssets assets(archive);
  for (uint32_t i = 0; i < assets.Count(); ++i)
    tables.Take(assets.At(i).soup);
  tables.StoreIn(archive);
}

Nox::PString PackageBuilder::Add(const PackageItem& item) {
  const KUID kuid = item.GetKUID();
  if (kuid.IsNull()) return RefuseWithoutKuid();
  if (tables_.Holds(kuid)) return RefuseDuplicate(kuid);
  assets_.SetContainer(kuid.ToTagString(), TagContainer(item.soup));
  tables_.Take(item.soup);
  return Nox::PString();
}

TagContainer PackageBuilder::Finish() const {
  TagContainer archive;
  if (assets_.GetCount() == 0) return archive;
  archive.SetContainer(kAssets, TagContainer(assets_));
  tables_.StoreIn(archive);
  return archive;
}

}  // namespace morvex
