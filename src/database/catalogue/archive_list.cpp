#include "database/catalogue/archive_list.h"

#include <algorithm>
#include <utility>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/database.h"
#include "engine/rand.h"

namespace morvex {
namespace {

void TakeOut(KUIDList& wanted, const ZEBArchive& archive) {
  KUIDList left;
  for (const KUID& kuid : wanted) {
    if (!archive.kuids.Contains(kuid)) left.Add(kuid);
  }
  wanted = std::move(left);
}

}  // namespace

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

uint32_t ZEBArchiveList::FreeNumber() const {
  uint32_t number = 1;
  const auto isTaken = [&](const auto& archive) { return archive->number == number; };
  while (std::any_of(archives_.begin(), archives_.end(), isTaken))
    ++number;
  return number;
}

void ZEBArchiveList::Select(KUIDList& wanted, std::vector<ZEBArchive*>& chosen) {
  for (const ZEBArchive* archive : chosen)
    TakeOut(wanted, *archive);
  while (ZEBArchive* best = FindBestFor(wanted, chosen)) {
    chosen.push_back(best);
    TakeOut(wanted, *best);
  }
}

// Of equal ones the first in the list; null if no other one holds anything of it.
ZEBArchive* ZEBArchiveList::FindBestFor(const KUIDList& wanted, const std::vector<ZEBArchive*>& chosen) {
  ZEBArchive* best = nullptr;
  for (const auto& archive : archives_) {
    archive->hits = 0;
    for (const KUID& kuid : wanted) {
      if (archive->kuids.Contains(kuid)) ++archive->hits;
    }
    const bool isFree = std::find(chosen.begin(), chosen.end(), archive.get()) == chosen.end();
    if (isFree && archive->hits > (best == nullptr ? 0 : best->hits)) best = archive.get();
  }
  return best;
}

}  // namespace morvex
