#include "packages/package_tables.h"

#include "packages/asset_lists.h"
#include "packages/package_tags.h"
#include "tagdata/tag_container.h"

namespace morvex {

void PackageTables::Take(const TagContainer& asset) {
  const KUID kuid = asset.GetKUID(PackageTags::kKuid);
  contents_.Add(kuid);
  CollectDependencies(asset, kuid, dependencies_);
  CollectObsoletes(asset, kuid, obsoletes_);
}

void PackageTables::StoreIn(TagContainer& archive) const {
  KUIDList missing;
  for (const KUID& kuid : dependencies_) {
    if (!contents_.Contains(kuid)) missing.Add(kuid);
  }
  archive.SetContainer(PackageTags::kContentsTable, contents_.ToContainer());
  archive.SetContainer(PackageTags::kKuidTable, missing.ToContainer());
  archive.SetContainer(PackageTags::kObsoleteTable, obsoletes_.ToContainer());
  archive.SetString(PackageTags::kKind, kArchiveKind);
  archive.SetInt(PackageTags::kVersion, kPackageVersion);
}

}  // namespace morvex
