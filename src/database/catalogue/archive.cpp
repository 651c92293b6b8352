#include "database/catalogue/archive.h"

#include <limits>
#include <utility>

#include "database/catalogue/archive_file.h"
#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "tagdata/chump_file.h"
#include "tagdata/stream.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

constexpr int64_t kMaxPlace = std::numeric_limits<uint32_t>::max();

void SetArchived(ZEBAssetInfo& record) {
  record.Set(AssetState::kArchived, true);
  record.Set(AssetState::kArchivedKnown, true);
}

// A record that says nothing yet, so that whoever knows the asset can fill it in.
ZEBAssetInfo* CreateNameless(const KUID& kuid) {
  ZEBAssetInfo* const record = ZEBAssetCache::Instance().Create(kuid);
  if (record != nullptr) record->SetTexts(AssetTexts());
  return record;
}

bool WriteEntry(TStream& stream, const KUID& kuid, const TagContainer& item) {
  kuid.WriteTo(stream);
  const int64_t next = stream.BeginSizeField();
  if (!WriteChumpFile(item, stream) || stream.Position() > kMaxPlace) return false;
  stream.PatchU32(next, static_cast<uint32_t>(stream.Position()));
  return true;
}

}  // namespace

uint64_t ZEBArchive::SizeOf(const KUID& kuid) {
  const ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(kuid);
  const bool known = record != nullptr && static_cast<int32_t>(record->FolderSize()) >= 0;
  return known ? record->FolderSize() : kAssumedSize;
}

bool ZEBArchive::Add(const KUID& kuid) {
  if (kuid.IsNull() || kuids.Contains(kuid)) return false;
  if (totalSize == 0) {
    for (const KUID& held : kuids)
      totalSize += SizeOf(held);
  }
  const uint64_t size = SizeOf(kuid);
  if (totalSize + size > kMaxTotalSize) return false;
  kuids.Add(kuid);
  totalSize += size;
  if (ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(kuid)) SetArchived(*record);
  ZEBMarkChanged(kContentChanged);
  return true;
}

ZEBAssetInfo* ZEBArchive::Remove(const KUID& kuid) {
  if (!kuids.Remove(kuid)) return nullptr;
  totalSize = 0;
  ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(kuid);
  if (record != nullptr) record->Set(AssetState::kArchivedKnown, false);
  ZEBMarkChanged(kContentChanged);
  return record;
}

bool ZEBArchive::Write(TStream& stream, const MakeItem& makeItem) const {
  const ZEBAssetLock lock(false);
  stream.WriteU32s(kArchiveMagic, kArchiveVersion);
  const int64_t sizeAt = stream.BeginSizeField();
  stream.WriteU32(serial);
  bool all = true;
  for (const KUID& kuid : kuids) {
    const TagContainer item = makeItem(kuid);
    if (item.IsEmpty()) {
      all = false;
    } else if (!WriteEntry(stream, kuid, item)) {
      return false;
    }
  }
  KUID().WriteTo(stream);
  if (stream.Position() > kMaxPlace) return false;
  stream.PatchU32(sizeAt, static_cast<uint32_t>(stream.Position()));
  return all && !stream.WriteFailed();
}

bool ZEBArchive::Scan(TStream& stream) {
  KUIDList found;
  ArchiveEntries entries(stream);
  while (entries.Next())
    found.AddUnique(entries.Kuid());
  if (entries.IsDamaged()) return false;

  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  mounted = true;
  scanning = true;
  for (const KUID& kuid : kuids) {
    if (ZEBAssetInfo* record = cache.Find(kuid)) record->Set(AssetState::kArchivedKnown, false);
  }
  kuids = std::move(found);
  totalSize = 0;
  for (const KUID& kuid : kuids) {
    ZEBAssetInfo* record = cache.Find(kuid);
    if (record == nullptr) record = CreateNameless(kuid);
    if (record != nullptr) SetArchived(*record);
  }
  cache.SortView();
  scanning = false;
  ZEBMarkChanged(kContentChanged);
  return true;
}

bool ZEBArchive::Matches(TStream& stream) const {
  const ZEBAssetLock lock(false);
  const int64_t length = stream.Size();
  const ArchiveHeader header = ReadArchiveHeader(stream);
  return header.magic == kArchiveMagic && header.version == kArchiveVersion && header.serial == serial &&
         header.fileSize == length;
}

}  // namespace morvex
