#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace morvex {

class RecordStore;
class ZEBAssetInfo;

// The records in order of their display names, cases not told apart; equal names in load order. Kept in short
// runs, so that sorting one record in moves few others however many there are.
//
// What is appended stands behind the sorted part, and what is renamed keeps its place, until Sort.
class SortedView {
 public:
  // Builds the view of all records anew.
  void Build(RecordStore& records);
  void Append(ZEBAssetInfo& record);
  // To be called before the display name of a record of the sorted part changes.
  void NoteRename(ZEBAssetInfo& record);
  void Remove(ZEBAssetInfo& record);
  void Sort();
  void Clear();

  size_t Size() const { return size_; }
  // How many Sort would move.
  size_t Unsorted() const { return tail_.size() + formerNames_.size(); }

  template <typename Visit>
  void ForEach(Visit visit) const {
    for (const Run& run : runs_) {
      for (ZEBAssetInfo* record : run)
        visit(*record);
    }
    for (ZEBAssetInfo* record : tail_)
      visit(*record);
  }

 private:
  using Run = std::vector<ZEBAssetInfo*>;
  static constexpr size_t kRunSize = 512;  // a run is split when it grows to twice that

  struct Place {
    size_t run;
    size_t slot;
  };

  std::string_view KeyOf(const ZEBAssetInfo& record) const;
  bool Less(const ZEBAssetInfo& a, const ZEBAssetInfo& b) const;
  Place PlaceOf(const ZEBAssetInfo& record) const;
  void Insert(ZEBAssetInfo& record);
  void Erase(const ZEBAssetInfo& record);

  std::vector<Run> runs_;                                       // sorted, none empty
  Run tail_;                                                    // appended since the last sort
  std::unordered_map<ZEBAssetInfo*, std::string> formerNames_;  // of renamed records in runs_
  size_t size_ = 0;
};

}  // namespace morvex
