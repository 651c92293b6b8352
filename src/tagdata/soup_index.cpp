#include "tagdata/soup_index.h"

#include <functional>

namespace morvex {
namespace {

uint32_t HashOf(std::string_view name) {
  return static_cast<uint32_t>(std::hash<std::string_view>()(name));
}

}  // namespace

SoupIndex::SoupIndex(ByteSpan soup) : soup_(soup) {
  std::vector<uint32_t> lasts;  // of the first chunk of a name: the last one so far
  for (ChunkWalker walker(soup); walker.Next();) {
    const auto number = static_cast<uint32_t>(entries_.size());
    entries_.push_back({static_cast<uint32_t>(walker.Offset()), PlaceTable::kNone});
    lasts.push_back(number);
    const std::string_view name = walker.Chunk().Name();
    const uint32_t first = First(name);
    if (first == PlaceTable::kNone) {
      firsts_.Add(HashOf(name), number);
    } else {
      entries_[lasts[first]].next = number;
      lasts[first] = number;
    }
  }
}

std::string_view SoupIndex::NameOf(uint32_t number) const {
  ChunkWalker walker(soup_, entries_[number].offset);
  walker.Next();
  return walker.Chunk().Name();
}

uint32_t SoupIndex::First(std::string_view name) const {
  return firsts_.Find(HashOf(name), [&](uint32_t number) { return NameOf(number) == name; });
}

}  // namespace morvex
