#pragma once

#include <cstdint>
#include <deque>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "engine/pstring.h"

namespace morvex {

// The known users of the download station. Its entries are a section of the index file; the queues of numbers to
// ask for last for one run.
class AuthorTable {
 public:
  static constexpr uint32_t kNoProfile = 0xFFFFFFFF;
  static constexpr size_t kMaxPending = 33;

  struct Entry {
    Nox::PString name;
    uint32_t profileId = kNoProfile;
    uint32_t userId = 0;

    bool operator==(const Entry&) const = default;
  };

  // 0 gives "-", -2 "unknown", other negative numbers "Dovik". An unknown number gives "#" and the number, and is
  // queued, once in a run.
  Nox::PString UserIdToName(int32_t number);
  // kNoProfile gives "-", an unknown number "unknown" and is queued.
  Nox::PString ProfileIdToName(uint32_t number);
  // "#123" gives 123; otherwise the number of the user of that name in any case, 0 if there is none.
  int32_t NameToUserId(std::string_view name) const;
  // Adds a user in the place of an entry with the same profile or name. False for no profile or no name.
  bool AddProfile(uint32_t profileId, Nox::PString name, uint32_t userId);

  const std::vector<Entry>& Entries() const { return entries_; }
  void SetEntries(std::vector<Entry> entries);
  const std::deque<uint32_t>& PendingUserIds() const { return pendingUsers_.numbers; }
  const std::deque<uint32_t>& PendingProfileIds() const { return pendingProfiles_.numbers; }
  // Takes a number off the queue, whether or not it was found; it isn't asked for again in this run.
  void DropPendingUser(uint32_t number) { std::erase(pendingUsers_.numbers, number); }
  void Clear();

 private:
  // Numbers to ask for, oldest first, and those that were ever put in.
  struct Queue {
    std::deque<uint32_t> numbers;
    std::unordered_set<uint32_t> done;
    void Ask(uint32_t number);
    void Forget(uint32_t number);
  };

  void IndexEntries();

  std::vector<Entry> entries_;
  std::unordered_map<uint32_t, size_t> firstOfUser_;  // place in entries_
  Queue pendingUsers_;
  Queue pendingProfiles_;
};

}  // namespace morvex
