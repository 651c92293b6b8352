#pragma once

#include <cstdint>
#include <vector>

#include "database/catalogue/kuid_index.h"
#include "tagdata/kuid.h"
#include "tagdata/kuid_list.h"

namespace morvex {

// Which asset stands in for which. A KUID is replaced by at most one other, and chains are flattened when they
// come about, so one look-up gives the final answer. Nothing stands in for itself. Guarded by the database lock.
class ZEBObsoleteMap {
 public:
  struct Pair {
    KUID oldKuid;  // null: a free place
    KUID newKuid;
  };

  // `oldKuid` is replaced by `newKuid`, or by what replaces that. The last call for an `oldKuid` wins. False, and
  // no change, for a null KUID and where an asset would come to replace itself.
  bool Set(const KUID& oldKuid, const KUID& newKuid);
  // What replaces `oldKuid`, or the null KUID.
  KUID Find(const KUID& oldKuid) const;
  // Appends what `newKuid` replaces.
  void Replacements(const KUID& newKuid, KUIDList& list) const;
  // Forgets all that `newKuid` replaces.
  void Remove(const KUID& newKuid);
  void Clear();

  size_t Count() const { return byOld_.Size(); }
  // Calls visit(Pair) for each pair, in order of their places.
  template <typename Visit>
  void ForEach(Visit visit) const {
    for (const Entry& entry : entries_) {
      if (!entry.pair.oldKuid.IsNull()) visit(entry.pair);
    }
  }

 private:
  static constexpr uint32_t kNone = 0xFFFFFFFF;

  // All entries of one `newKuid` form a chain, so that they can be moved to another one together.
  struct Entry {
    Pair pair;
    uint32_t next = kNone;
    uint32_t previous = kNone;
  };

  KUID OldOf(uint32_t entry) const { return entries_[entry].pair.oldKuid; }
  KUID NewOf(uint32_t entry) const { return entries_[entry].pair.newKuid; }
  uint32_t FindOld(const KUID& kuid) const;
  uint32_t FirstOf(const KUID& newKuid) const;
  void Link(uint32_t entry);
  void Unlink(uint32_t entry);
  void Retarget(const KUID& from, const KUID& to);
  void Erase(uint32_t entry);

  std::vector<Entry> entries_;
  std::vector<uint32_t> free_;  // places of erased entries
  KuidIndex byOld_;             // entry of an old KUID
  KuidIndex byNew_;             // first entry of a new KUID's chain
};

}  // namespace morvex
