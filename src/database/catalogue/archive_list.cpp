#include "database/catalogue/archive_list.h"

#include <algorithm>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/database.h"
#include "engine/rand.h"

namespace morvex {

ZEBArchive& ZEBArchiveList::Add() {
  ZEBArchive archive;
  archive.serial = static_cast<uint32_t>(Nox::Rand::Global().NextInt(0, 0x7FFFFFFF));
  return Append(std::move(archive));
}

ZEBArchive& ZEBArchiveList::Append(ZEBArchive archive) {
  archives_.push_back(std::make_unique<ZEBArchive>(std::move(archive)));
  return *archives_.back();
}

void ZEBArchiveList::Remove(ZEBArchive& archive) {
  for (const KUID& kuid : archive.kuids) {
    ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(kuid);
    if (record != nullptr) record->Set(AssetState::kArchivedKnown, false);
  }
  std::erase_if(archives_, [&](const auto& held) { return held.get() == &archive; });
  ZEBMarkChanged(kContentChanged);
}

bool ZEBArchiveList::IsArchived(const ZEBAssetInfo& record) const {
  return std::any_of(archives_.begin(), archives_.end(),
                     [&](const auto& archive) { return archive->kuids.Contains(record.Kuid()); });
}

ZEBArchive* ZEBArchiveList::FindBySerial(uint32_t serial) {
  for (const auto& archive : archives_) {
    if (archive->serial == serial) return archive.get();
  }
  return nullptr;
}

}  // namespace morvex
