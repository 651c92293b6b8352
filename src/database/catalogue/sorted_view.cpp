#include "database/catalogue/sorted_view.h"

#include <algorithm>
#include <functional>

#include "database/catalogue/asset_info.h"
#include "database/catalogue/fold_compare.h"
#include "database/catalogue/record_store.h"

namespace morvex {

using ViewPlace = ZEBAssetInfo::ViewPlace;

namespace {

// A record by the 8 folded bytes of its name that are being looked at.
struct SortKey {
  uint64_t part;
  std::string_view name;
  ZEBAssetInfo* record;
};

constexpr size_t kPart = sizeof(uint64_t);

// Sorts by the parts, then each group with equal parts by the next ones, which are read only for these. `isLess`
// decides between equal names. Names that share very long beginnings make many rounds, so there is no recursion.
template <typename Less>
void SortKeys(std::vector<SortKey>& keys, Less isLess) {
  struct Group {
    size_t begin, end, depth;
  };
  std::vector<Group> groups = {{0, keys.size(), 0}};
  while (!groups.empty()) {
    const Group group = groups.back();
    groups.pop_back();
    const auto first = keys.begin() + static_cast<ptrdiff_t>(group.begin);
    const auto last = keys.begin() + static_cast<ptrdiff_t>(group.end);
    for (auto key = first; key != last; ++key)
      key->part = FoldPrefix(key->name.substr(std::min(group.depth, key->name.size())));
    std::sort(first, last, [](const SortKey& a, const SortKey& b) { return a.part < b.part; });
    for (auto begin = first; begin != last;) {
      const auto end = std::find_if(begin, last, [&](const SortKey& key) { return key.part != begin->part; });
      const bool namesEnd = (begin->part & 0xFF) == 0;
      if (namesEnd) {
        std::sort(begin, end,
                  [&](const SortKey& a, const SortKey& b) { return isLess(*a.record, *b.record); });
      } else if (end - begin > 1) {
        groups.push_back({static_cast<size_t>(begin - keys.begin()), static_cast<size_t>(end - keys.begin()),
                          group.depth + kPart});
      }
      begin = end;
    }
  }
}

}  // namespace

void SortedView::Build(RecordStore& records) {
  Clear();
  std::vector<SortKey> keys;
  keys.reserve(records.Places());
  for (size_t i = 0; i < records.Places(); ++i) {
    ZEBAssetInfo& record = records[i];
    if (record.removed_) continue;
    record.viewPlace_ = ViewPlace::kSorted;
    keys.push_back({0, record.DisplayName(), &record});
  }
  SortKeys(keys, [](const ZEBAssetInfo& a, const ZEBAssetInfo& b) { return a.ordinal_ < b.ordinal_; });
  size_ = keys.size();
  runs_.reserve(keys.size() / kRunSize + 1);
  for (size_t i = 0; i < keys.size(); ++i) {
    if (i % kRunSize == 0) {
      runs_.emplace_back();
      runs_.back().reserve(std::min(kRunSize, keys.size() - i));
    }
    runs_.back().push_back(keys[i].record);
  }
}

void SortedView::Append(ZEBAssetInfo& record) {
  tail_.push_back(&record);
  record.viewPlace_ = ViewPlace::kTail;
  ++size_;
}

void SortedView::NoteRename(ZEBAssetInfo& record) {
  if (record.viewPlace_ != ViewPlace::kSorted) return;
  formerNames_.emplace(&record, record.DisplayName());
  record.viewPlace_ = ViewPlace::kRenamed;
}

void SortedView::Remove(ZEBAssetInfo& record) {
  if (record.viewPlace_ == ViewPlace::kNone) return;
  if (record.viewPlace_ == ViewPlace::kTail) {
    tail_.erase(std::find(tail_.begin(), tail_.end(), &record));
  } else {
    Erase(record);
    formerNames_.erase(&record);
  }
  record.viewPlace_ = ViewPlace::kNone;
  --size_;
}

void SortedView::Sort() {
  Run moving = std::move(tail_);
  tail_.clear();
  for (const auto& [record, name] : formerNames_)
    Erase(*record);
  for (const auto& [record, name] : formerNames_)
    moving.push_back(record);
  formerNames_.clear();
  for (ZEBAssetInfo* record : moving)
    record->viewPlace_ = ViewPlace::kSorted;
  for (ZEBAssetInfo* record : moving)
    Insert(*record);
}

void SortedView::Clear() {
  runs_.clear();
  tail_.clear();
  formerNames_.clear();
  size_ = 0;
}

// The name under which the record stands in the sorted part.
std::string_view SortedView::KeyOf(const ZEBAssetInfo& record) const {
  if (record.viewPlace_ != ViewPlace::kRenamed) return record.DisplayName();
  return formerNames_.find(const_cast<ZEBAssetInfo*>(&record))->second;
}

bool SortedView::Less(const ZEBAssetInfo& a, const ZEBAssetInfo& b) const {
  const int order = FoldCompare(KeyOf(a), KeyOf(b));
  return order != 0 ? order < 0 : a.ordinal_ < b.ordinal_;
}

// Where the record stands, or would: the first place whose record isn't less.
SortedView::Place SortedView::PlaceOf(const ZEBAssetInfo& record) const {
  const auto less = [this](const ZEBAssetInfo* a, const ZEBAssetInfo* b) { return Less(*a, *b); };
  auto run = std::partition_point(runs_.begin(), runs_.end(),
                                  [&](const Run& earlier) { return less(earlier.back(), &record); });
  if (run == runs_.end()) --run;
  const auto slot = std::lower_bound(run->begin(), run->end(), &record, less);
  return {static_cast<size_t>(run - runs_.begin()), static_cast<size_t>(slot - run->begin())};
}

void SortedView::Insert(ZEBAssetInfo& record) {
  if (runs_.empty()) {
    runs_.push_back({&record});
    return;
  }
  const Place place = PlaceOf(record);
  Run& run = runs_[place.run];
  run.insert(run.begin() + static_cast<ptrdiff_t>(place.slot), &record);
  if (run.size() < 2 * kRunSize) return;
  Run upper(run.begin() + kRunSize, run.end());
  run.resize(kRunSize);
  runs_.insert(runs_.begin() + static_cast<ptrdiff_t>(place.run) + 1, std::move(upper));
}

void SortedView::Erase(const ZEBAssetInfo& record) {
  const Place place = PlaceOf(record);
  Run& run = runs_[place.run];
  run.erase(run.begin() + static_cast<ptrdiff_t>(place.slot));
  if (run.empty()) runs_.erase(runs_.begin() + static_cast<ptrdiff_t>(place.run));
}

}  // namespace morvex
