#include "database/catalogue/author_table.h"

#include <algorithm>

#include "engine/format.h"
#include "engine/number_text.h"

namespace morvex {

Nox::PString AuthorTable::UserIdToName(int32_t number) {
  if (number == 0) return Nox::PString("-");
  if (number == -2) return Nox::PString("unknown");
  if (number < 0) return Nox::PString("Dovik");
  const auto known = firstOfUser_.find(static_cast<uint32_t>(number));
  if (known != firstOfUser_.end()) return entries_[known->second].name;
  pendingUsers_.Ask(static_cast<uint32_t>(number));
  return Nox::PString(Nox::FormatText("#%d", number));
}

Nox::PString AuthorTable::ProfileIdToName(uint32_t number) {
  if (number == kNoProfile) return Nox::PString("-");
  for (const Entry& entry : entries_) {
    if (entry.profileId == number) return entry.name;
  }
  pendingProfiles_.Ask(number);
  return Nox::PString("unknown");
}

int32_t AuthorTable::NameToUserId(std::string_view name) const {
  if (name.starts_with('#')) return Nox::ReadInt(name.substr(1));
  for (const Entry& entry : entries_) {
    if (entry.name.EqualsIgnoreCase(name)) return static_cast<int32_t>(entry.userId);
  }
  return 0;
}

bool AuthorTable::AddProfile(uint32_t profileId, Nox::PString name, uint32_t userId) {
  if (profileId == kNoProfile || name.Empty()) return false;
  for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
    if (entry->profileId == profileId) {
      if (userId == 0) userId = entry->userId;
      entries_.erase(entry);
      break;
    }
    if (entry->name.EqualsIgnoreCase(name)) {
      entries_.erase(entry);
      break;
    }
    if (entry->userId == userId) entry->userId = 0;
  }
  entries_.push_back({name, profileId, userId});
  IndexEntries();
  pendingProfiles_.Forget(profileId);
  pendingUsers_.Forget(userId);
  return true;
}

void AuthorTable::SetEntries(std::vector<Entry> entries) {
  entries_ = std::move(entries);
  IndexEntries();
}

void AuthorTable::Clear() {
  *this = AuthorTable();
}

void AuthorTable::IndexEntries() {
  firstOfUser_.clear();
  for (size_t i = 0; i < entries_.size(); ++i)
    firstOfUser_.emplace(entries_[i].userId, i);
}

void AuthorTable::Queue::Ask(uint32_t number) {
  if (done.contains(number)) return;
  if (numbers.size() >= kMaxPending) {
    done.erase(numbers.front());
    numbers.pop_front();
  }
  if (std::find(numbers.begin(), numbers.end(), number) == numbers.end()) numbers.push_back(number);
  done.insert(number);
}

void AuthorTable::Queue::Forget(uint32_t number) {
  numbers.erase(std::remove(numbers.begin(), numbers.end(), number), numbers.end());
  done.erase(number);
}

}  // namespace morvex
