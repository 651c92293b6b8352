// The remembered answers that need one look at a table.

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/database.h"

namespace morvex {

bool ZEBAssetCache::IsArchived(ZEBAssetInfo& record) {
  const std::lock_guard guard(computing_);
  if (!record.Has(AssetState::kArchivedKnown)) {
    record.Set(AssetState::kArchived, archives.IsArchived(record));
    record.Set(AssetState::kArchivedKnown, true);
    ZEBMarkChanged(kContentChanged);
  }
  return record.Has(AssetState::kArchived);
}

bool ZEBAssetCache::IsObsoleted(ZEBAssetInfo& record) {
  const std::lock_guard guard(computing_);
  if (!obsoletedKnown_) ComputeObsoleted();
  return record.obsoleted_;
}

void ZEBAssetCache::ComputeObsoleted() {
  for (size_t i = 0; i < records.Places(); ++i) {
    const KUID replacement = obsoletes.Find(records[i].kuid_);
    records[i].obsoleted_ = !replacement.IsNull() && replacement != records[i].kuid_;
  }
  obsoletedKnown_ = true;
}

bool ZEBAssetCache::IsLatest(const ZEBAssetInfo& record) const {
  const KUID& kuid = record.kuid_;
  if (record.IsInstalled() || kuid.userId < 0 || kuid.version == 0) return true;
  const KUID newest = obsoletes.Find(KUID(kuid.userId, kuid.contentId, 0));
  return newest.IsNull() || newest == kuid;
}

}  // namespace morvex
