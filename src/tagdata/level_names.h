#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "tagdata/place_table.h"

namespace morvex {

class ChunkWriter;

// The names that the open soups of a chunk body hold so far, to find the chunk of a name again. The soups lie
// one in the other; only the innermost is asked and added to. A handful of names is searched one by one, more
// of them through a table.
class LevelNames {
 public:
  static constexpr uint32_t kNone = 0xFFFFFFFF;

  // Looks at the chunks that were written.
  explicit LevelNames(const ChunkWriter& body) : body_(body) { Open(); }

  void Open() { levels_.push_back({entries_.size(), 0, nullptr}); }
  void Close();

  // Notes that the chunk of this name lies at `chunk` (kNone: that there is none any more). Returns where the
  // one before it lies, or kNone.
  uint32_t Put(std::string_view name, uint32_t chunk);

 private:
  struct Entry {
    uint64_t mark;   // names of different marks differ
    uint32_t named;  // a chunk of this name
    uint32_t chunk;  // the one that counts, kNone if none does
  };
  struct Level {
    size_t first;                       // of its entries
    uint64_t bits;                      // one for the mark of each of its names
    std::unique_ptr<PlaceTable> table;  // once there are many
  };

  static constexpr size_t kTableFrom = 24;

  bool IsNamed(const Entry& entry, uint64_t mark, std::string_view name) const;
  Entry* Find(uint64_t mark, std::string_view name);
  void Add(const Entry& entry);

  const ChunkWriter& body_;
  std::vector<Entry> entries_;
  std::vector<Level> levels_;
};

}  // namespace morvex
