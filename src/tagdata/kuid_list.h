#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "tagdata/kuid.h"

namespace morvex {

class TagContainer;

// An ordered list of KUIDs. It is kept in blocks of up to 128, and `RemoveSwap` makes the blocks visible:
// its hole is filled from the end of the same block. A list of more than one block also counts its KUIDs
// in a hash table, so that asking for one costs the same however long the list is.
class KUIDList {
 public:
  static constexpr size_t kBlockSize = 128;

  class Iterator;

  size_t Count() const { return count_; }
  bool IsEmpty() const { return count_ == 0; }
  Iterator begin() const;
  Iterator end() const;
  void Clear();

  // Appends.
  void Add(KUID kuid);
  // True if it was appended, false if the list held it already.
  bool AddUnique(const KUID& kuid);
  // As AddUnique, and passes over the null KUID too.
  bool AddIfValid(const KUID& kuid);

  bool Contains(const KUID& kuid) const;
  // The first equal KUID, valid until the next change of the list, or null.
  const KUID* Find(const KUID& kuid) const;

  // Takes out the first equal KUID and keeps the order of the others. False if there is none.
  bool Remove(KUID kuid);
  // Takes out the first equal KUID and moves the last of its block into its place.
  bool RemoveSwap(KUID kuid);

  // A new soup of KUID tags named "0", "1", ...; null KUIDs take no number.
  TagContainer ToContainer() const;
  // Adds the KUID of each tag, once.
  void FromContainer(const TagContainer& container);
  // Adds each KUID that a configuration mentions as a KUID or as a string, at any depth.
  void ScanContainer(const TagContainer& container);

 private:
  using Block = std::vector<KUID>;

  struct Place {
    size_t block;
    size_t slot;
  };

  std::optional<Place> Locate(const KUID& kuid) const;
  void StartIndex();
  // Ends a removal: `kuid` has left the block.
  void Removed(const KUID& kuid, size_t block);

  std::vector<Block> blocks_;  // none of them empty
  size_t count_ = 0;
  std::unordered_map<KUID, uint32_t> index_;  // how often each occurs; empty until there is a second block
};

// Walks the list in order; valid until the list's next change.
class KUIDList::Iterator {
 public:
  Iterator(const std::vector<Block>* blocks, size_t block) : blocks_(blocks), block_(block) {}

  const KUID& operator*() const { return (*blocks_)[block_][slot_]; }
  Iterator& operator++() {
    if (++slot_ == (*blocks_)[block_].size()) {
      ++block_;
      slot_ = 0;
    }
    return *this;
  }
  bool operator==(const Iterator& other) const { return block_ == other.block_ && slot_ == other.slot_; }

 private:
  const std::vector<Block>* blocks_;
  size_t block_;
  size_t slot_ = 0;
};

inline KUIDList::Iterator KUIDList::begin() const {
  return {&blocks_, 0};
}
inline KUIDList::Iterator KUIDList::end() const {
  return {&blocks_, blocks_.size()};
}

}  // namespace morvex
