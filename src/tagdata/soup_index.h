#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tagdata/chunk_walker.h"
#include "tagdata/place_table.h"

namespace morvex {

// Finds the chunks of one big soup of a loaded file by name. Never changes once it is made.
class SoupIndex {
 public:
  explicit SoupIndex(ByteSpan soup);

  // Number of the first chunk of that name, PlaceTable::kNone if there is none.
  uint32_t First(std::string_view name) const;
  // The next chunk of the same name.
  uint32_t Next(uint32_t number) const { return entries_[number].next; }
  size_t Offset(uint32_t number) const { return entries_[number].offset; }

 private:
  struct Entry {
    uint32_t offset;
    uint32_t next;  // of the same name
  };

  std::string_view NameOf(uint32_t number) const;

  ByteSpan soup_;
  std::vector<Entry> entries_;
  PlaceTable firsts_;
};

}  // namespace morvex
