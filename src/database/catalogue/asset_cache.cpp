#include "database/catalogue/asset_cache.h"

#include "database/catalogue/config_reader.h"
#include "database/catalogue/database.h"
#include "database/catalogue/kuid_generator.h"
#include "engine/time.h"

namespace morvex {

ZEBAssetCache& ZEBAssetCache::Instance() {
  static ZEBAssetCache cache;
  return cache;
}

ZEBAssetInfo* ZEBAssetCache::Find(const KUID& kuid) {
  NoteAccess();
  const uint32_t ordinal = index_.Find(kuid, [this](uint32_t at) { return records[at].kuid_; });
  return ordinal == KuidIndex::kNone ? nullptr : &records[ordinal];
}

ZEBAssetInfo* ZEBAssetCache::Create(KUID kuid) {
  if (kuid.IsNull()) kuid = ZEBGenerateKUID();
  if (kuid.IsNull() || Find(kuid) != nullptr) return nullptr;
  ZEBAssetInfo record(kuid);
  AssetTexts texts;
  texts[static_cast<size_t>(AssetText::kCategoryClass)] = "?";
  texts[static_cast<size_t>(AssetText::kUsername)] = "New Asset";
  record.SetTexts(texts);
  ZEBMarkChanged(kContentChanged);
  return &Keep(std::move(record));
}

ZEBAssetInfo& ZEBAssetCache::Keep(ZEBAssetInfo&& record) {
  const auto ordinal = static_cast<uint32_t>(records.Places());
  ZEBAssetInfo& kept = records.Append();
  kept = std::move(record);
  kept.ordinal_ = ordinal;
  kept.kept_ = true;
  index_.Insert(kept.kuid_, ordinal);
  if (viewMade_) view_.Append(kept);
  obsoletedKnown_ = false;
  if (kept.IsInstalled()) ForgetDependants(kept.kuid_);
  return kept;
}

void ZEBAssetCache::Remove(ZEBAssetInfo& record) {
  if (record.removed_) return;
  ForgetDependants(record.kuid_);
  RemoveObsoletes(record);
  dependencies.Set(record.kuid_, {});
  DropConfigOf(record);
  if (viewMade_) view_.Remove(record);
  index_.Erase(record.kuid_, record.ordinal_);
  record.removed_ = true;
  record.kept_ = false;
  ZEBMarkChanged(kContentChanged);
}

void ZEBAssetCache::SortView() {
  constexpr size_t kFew = 8;  // where less than this part is to be moved, that costs less than a new view
  const std::lock_guard guard(computing_);
  if (!viewMade_) return;
  if (view_.Unsorted() < view_.Size() / kFew) {
    view_.Sort();
  } else {
    view_.Build(records);
  }
}

const SortedView& ZEBAssetCache::View() {
  const std::lock_guard guard(computing_);
  if (!viewMade_) view_.Build(records);
  viewMade_ = true;
  return view_;
}

TagContainer ZEBAssetCache::Config(const ZEBAssetInfo& record) {
  const std::lock_guard guard(computing_);
  if (configOwner_ != &record) KeepConfig(record, ReadConfig(record));
  return config_;
}

void ZEBAssetCache::KeepConfig(const ZEBAssetInfo& record, const TagContainer& config) {
  const std::lock_guard guard(computing_);
  configOwner_ = &record;
  config_ = config;
}

void ZEBAssetCache::DropConfigOf(const ZEBAssetInfo& record) {
  const std::lock_guard guard(computing_);
  if (configOwner_ != &record) return;
  configOwner_ = nullptr;
  config_.Clear();
}

void ZEBAssetCache::NoteAccess() {
  lastAccess_.store(Nox::TimeStamp(), std::memory_order_relaxed);
}

void ZEBAssetCache::Clear() {
  configOwner_ = nullptr;
  config_.Clear();
  view_.Clear();
  viewMade_ = false;
  index_.Clear();
  records.Clear();
  obsoletes.Clear();
  obsoletedKnown_ = false;
  dependencies.Clear();
  notes.Clear();
  authors.Clear();
  archives.Clear();
  station = DownloadStationState();
  file_ = {};  // last: records and tables pointed into it
}

}  // namespace morvex
