#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "net/transfer/url.h"

namespace morvex {

// What the station's answers say. Each is a configuration text in a file; one that can't be read says nothing.

// To the search for updates: a `timestamp`, to be sent with the next search, and in `files` the URLs of lists.
struct SearchAnswer {
  std::string timestamp;
  std::vector<URL> lists;
};
// Nothing without a timestamp. URLs that lead out of the network are left out.
[[nodiscard]] std::optional<SearchAnswer> ReadSearchAnswer(std::string_view file);

// To the question for tickets: an `error`, or in `tickets` one container each with `type`, `rem` (days left),
// `infinite` and `suspended`.
struct TicketAnswer {
  std::string error;
  // Of the tickets of first class: the most days left on an active one, and on a suspended one. 0 without one.
  float activeDays = 0;
  float suspendedDays = 0;
};
[[nodiscard]] TicketAnswer ReadTicketAnswer(std::string_view file);

// To the question for a user: containers with a container `result` each.
struct ProfileAnswer {
  std::uint32_t profileId = 0;
  std::uint32_t userId = 0;
  std::string username;
};
// Nothing for an answer with a tag `error`.
[[nodiscard]] std::vector<ProfileAnswer> ReadProfileAnswer(std::string_view file);

}  // namespace morvex
