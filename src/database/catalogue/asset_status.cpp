#include "database/catalogue/asset_status.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "validation/categories/category_tables.h"

namespace morvex {
namespace {

char Letter(char letter, bool yes) {
  return yes ? letter : static_cast<char>(letter - 'A' + 'a');
}

}  // namespace

std::string ZEBAssetStatus::Letters() const {
  return {Letter('E', open),      Letter('I', installed),   Letter('A', archived), Letter('D', onStation),
          Letter('L', localCopy), Letter('M', missingDeps), Letter('E', hasErrors)};
}

bool ZEBGetAssetStatus(const KUID& kuid, ZEBAssetStatus& status) {
  status = ZEBAssetStatus();
  const ZEBAssetLock lock(false);
  if (!lock) return false;
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  ZEBAssetInfo* record = cache.Find(kuid);
  if (record == nullptr) return false;

  status.name = record->DisplayName();
  status.region = record->Text(AssetText::kRegionList);
  status.latest = cache.IsLatest(*record);
  status.localCopy = record->HasLocalCopy();
  status.installed = record->IsInstalled();
  status.builtIn = record->Has(AssetFlag::kBuiltIn);
  status.dlsItem = record->Has(AssetState::kDlsItem);
  status.onStation = record->Has(AssetState::kOnStation);
  status.archived = cache.IsArchived(*record);
  status.open = record->IsOpen();
  status.hasErrors = record->Has(AssetFlag::kHasErrors);
  status.missingDeps = cache.MissingDeps(*record);
  status.permitEdit = record->Has(AssetFlag::kPermitEdit);
  status.permitCommit = record->Has(AssetFlag::kPermitCommit);
  status.permitListing = record->PermitListing();
  status.author = record->Kuid().userId;
  status.era = record->Text(AssetText::kEraList);
  status.size = static_cast<int32_t>(record->FolderSize());
  status.category = record->CategoryClass();
  status.categoryName = CategoryLabel(CategoryLabelTable, status.category);
  status.pinned = record->Has(AssetState::kPinned);
  status.enabled = record->Has(AssetState::kEnabled);
  status.cloned = record->Has(AssetState::kCloned);
  status.reskin = record->Has(AssetState::kReskin);
  status.rating = record->Rating();
  const AssetNumbers numbers = record->Numbers();
  status.installedTime = numbers.installedTime;
  status.modifiedTime = numbers.modifiedTime;
  status.found = true;
  return true;
}

bool ZEBHasMissingDependencies(const KUID& kuid, bool ifMissingAsset) {
  const ZEBAssetLock lock(false);
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  ZEBAssetInfo* record = cache.Find(kuid);
  if (record == nullptr) return ifMissingAsset;
  if (ifMissingAsset && !record->IsInstalled()) return true;
  return cache.MissingDeps(*record);
}

bool ZEBHasErrors(const KUID& kuid) {
  const ZEBAssetLock lock(false);
  const ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(kuid);
  return record != nullptr && record->Has(AssetFlag::kHasErrors);
}

TagContainer ZEBGetAssetConfig(const KUID& kuid) {
  const ZEBAssetLock lock(false);
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  const ZEBAssetInfo* record = cache.Find(kuid);
  return record == nullptr ? TagContainer() : cache.Config(*record);
}

}  // namespace morvex
