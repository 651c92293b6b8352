#include "database/catalogue/keywords.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/kuid_generator.h"
#include "engine/path.h"
#include "tagdata/tag_container.h"

namespace morvex {

bool ZEBDumpKeywords() {
  const ZEBAssetLock lock(false);
  TagContainer dump;
  dump.GetRoot();
  ZEBAssetCache::Instance().View().ForEach(
      [&](const ZEBAssetInfo& record) { dump.SetString(record.Kuid().ToTagString(), record.SearchWords()); });
  return dump.Save(Nox::PString(), Nox::Path::AddPath(ZEBRoot(), kKeywordsDump), "txt");
}

// The words are changed under a hold for writing: other threads may be reading the records.
bool ZEBImportKeywords(std::string_view base, std::string_view name, std::string_view format) {
  const ZEBAssetLock lock(true);
  TagContainer dump;
  if (!dump.Load(Nox::PString(), Nox::Path::AddPath(base, name), format) || dump.GetCount() == 0)
    return false;
  for (uint32_t i = 0; i < dump.GetCount(); ++i) {
    const Nox::PString key = dump.GetName(i);
    ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(KUID(key.View(), false));
    if (record != nullptr) record->SetText(AssetText::kKeywords, dump.GetText(key));
  }
  return true;
}

}  // namespace morvex
