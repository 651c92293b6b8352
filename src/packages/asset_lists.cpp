#include "packages/asset_lists.h"

#include "packages/package_tags.h"
#include "tagdata/kuid_list.h"
#include "tagdata/tag_container.h"

namespace morvex {

void CollectDependencies(const TagContainer& soup, const KUID& ownKuid, KUIDList& list) {
  KUIDList needed;
  needed.ScanContainer(soup);
  needed.FromContainer(soup.GetContainer(PackageTags::kKuidTable));
  KUIDList obsolete;
  obsolete.FromContainer(soup.GetContainer(PackageTags::kObsoleteTable));
  for (const KUID& kuid : needed) {
    if (kuid != ownKuid && !obsolete.Contains(kuid)) list.AddUnique(kuid);
  }
}

void CollectObsoletes(const TagContainer& soup, const KUID& ownKuid, KUIDList& list) {
  list.FromContainer(soup.GetContainer(PackageTags::kObsoleteTable));
  list.AddIfValid(soup.GetKUID(PackageTags::kObsoletesKuid));
  list.RemoveSwap(ownKuid);
}

}  // namespace morvex
