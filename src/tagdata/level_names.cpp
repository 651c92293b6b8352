#include "tagdata/level_names.h"

#include <bit>
#include <cstring>
#include <functional>
#include <utility>

#include "tagdata/chunk_writer.h"

namespace morvex {
namespace {

uint64_t Load(const char* at, size_t size) {
  uint64_t word = 0;
  std::memcpy(&word, at, size);
  return word;
}

// Both ends of a name and its length, which is where names differ as a rule.
uint64_t MarkOf(std::string_view name) {
  const char* const end = name.data() + name.size();
  uint64_t mark = name.size() << 56;
  if (name.size() >= 8) return mark ^ Load(name.data(), 8) ^ std::rotl(Load(end - 8, 8), 13);
  if (name.size() >= 4) return mark ^ Load(name.data(), 4) ^ (Load(end - 4, 4) << 24);
  for (const char c : name)
    mark = mark ^ (mark << 8) ^ static_cast<uint8_t>(c);
  return mark;
}

// The bit of a mark: a name whose bit isn't set is new.
uint64_t BitOf(uint64_t mark) {
  return uint64_t{1} << (mark * 0x9E3779B97F4A7C15u >> 58);
}

// For the table, of all bytes: whoever writes a text can choose names of one mark.
uint32_t HashOf(std::string_view name) {
  return static_cast<uint32_t>(std::hash<std::string_view>()(name));
}

}  // namespace

void LevelNames::Close() {
  entries_.resize(levels_.back().first);
  levels_.pop_back();
}

bool LevelNames::IsNamed(const Entry& entry, uint64_t mark, std::string_view name) const {
  return entry.mark == mark && body_.NameAt(entry.named) == name;
}

LevelNames::Entry* LevelNames::Find(uint64_t mark, std::string_view name) {
  const Level& level = levels_.back();
  if ((level.bits & BitOf(mark)) == 0) return nullptr;
  if (level.table != nullptr) {
    const auto same = [&](uint32_t at) { return IsNamed(entries_[at], mark, name); };
    const uint32_t place = level.table->Find(HashOf(name), same);
    return place == PlaceTable::kNone ? nullptr : &entries_[place];
  }
  for (size_t i = level.first; i < entries_.size(); ++i) {
    if (IsNamed(entries_[i], mark, name)) return &entries_[i];
  }
  return nullptr;
}

void LevelNames::Add(const Entry& entry) {
  Level& level = levels_.back();
  size_t from = entries_.size();
  level.bits |= BitOf(entry.mark);
  entries_.push_back(entry);
  if (level.table == nullptr) {
    if (entries_.size() - level.first <= kTableFrom) return;
    level.table = std::make_unique<PlaceTable>();
    from = level.first;
  }
  for (; from < entries_.size(); ++from)
    level.table->Add(HashOf(body_.NameAt(entries_[from].named)), static_cast<uint32_t>(from));
}

uint32_t LevelNames::Put(std::string_view name, uint32_t chunk) {
  const uint64_t mark = MarkOf(name);
  if (Entry* entry = Find(mark, name)) return std::exchange(entry->chunk, chunk);
  if (chunk != kNone) Add({mark, chunk, chunk});
  return kNone;
}

}  // namespace morvex
