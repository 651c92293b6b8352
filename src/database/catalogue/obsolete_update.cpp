// How the obsoletes map follows the configurations.

#include <vector>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "tagdata/kuid_list.h"

namespace morvex {
namespace {

const Nox::PString kObsoleteTable("obsolete-table");

// What an asset with this configuration stands in for. An author's asset can replace only that author's assets,
// and replaces its own lower versions; the makers of built-in content may replace anything they name.
std::vector<KUID> ReplacedBy(const KUID& kuid, const TagContainer& config) {
  KUIDList named;
  named.FromContainer(config.GetContainer(kObsoleteTable));
  const bool ofAuthor = kuid.userId >= 0;
  std::vector<KUID> replaced;
  for (const KUID& entry : named) {
    if (entry.userId == kuid.userId && entry.contentId == kuid.contentId) continue;
    if (ofAuthor && entry.userId != kuid.userId) continue;
    replaced.push_back(entry);
  }
  if (ofAuthor) {
    for (uint32_t version = 0; version < kuid.version; ++version)
      replaced.emplace_back(kuid.userId, kuid.contentId, version);
  }
  return replaced;
}

}  // namespace

void ZEBAssetCache::UpdateObsoletes(ZEBAssetInfo& record) {
  UpdateObsoletesFrom(record, Config(record));
}

void ZEBAssetCache::UpdateObsoletesFrom(const ZEBAssetInfo& record, const TagContainer& config) {
  obsoletedKnown_ = false;
  for (const KUID& replaced : ReplacedBy(record.kuid_, config))
    obsoletes.Set(replaced, record.kuid_);
}

void ZEBAssetCache::RemoveObsoletes(ZEBAssetInfo& record) {
  obsoletedKnown_ = false;
  KUIDList uncovered;
  obsoletes.Replacements(record.kuid_, uncovered);
  obsoletes.Remove(record.kuid_);
  for (const KUID& kuid : uncovered) {
    ZEBAssetInfo* other = Find(kuid);
    if (other != nullptr && other->IsCommitted()) UpdateObsoletes(*other);
  }
}

KUID ZEBFindReplacement(const KUID& kuid) {
  const ZEBAssetLock lock(false);
  const KUID replacement = ZEBAssetCache::Instance().obsoletes.Find(kuid);
  return replacement.IsNull() ? kuid : replacement;
}

}  // namespace morvex
