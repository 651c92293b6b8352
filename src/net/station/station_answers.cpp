#include "net/station/station_answers.h"

#include <algorithm>

#include "engine/text.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

namespace tag {
const Nox::PString kTimestamp("timestamp");
const Nox::PString kFiles("files");
const Nox::PString kError("error");
const Nox::PString kTickets("tickets");
const Nox::PString kRemaining("rem");
const Nox::PString kType("type");
const Nox::PString kInfinite("infinite");
const Nox::PString kSuspended("suspended");
const Nox::PString kResult("result");
const Nox::PString kProfileId("profileid");
const Nox::PString kUserId("userid");
const Nox::PString kUsername("username");
}  // namespace tag

constexpr std::string_view kFirstClass = "FCT";
constexpr float kInfiniteDays = 1000;

TagContainer LoadAnswer(std::string_view file) {
  TagContainer answer;
  if (!answer.Load(Nox::PString(), file, "txt")) answer.Clear();
  return answer;
}

bool LeadsIntoNetwork(const URL& url) {
  return !url.host.Empty() && (url.HasScheme("http") || url.HasScheme("https") || url.HasScheme("ftp"));
}

float DaysOf(const TagContainer& ticket) {
  return ticket.GetBool(tag::kInfinite) ? kInfiniteDays : ticket.GetFloat(tag::kRemaining);
}

}  // namespace

std::optional<SearchAnswer> ReadSearchAnswer(std::string_view file) {
  const TagContainer soup = LoadAnswer(file);
  SearchAnswer answer;
  answer.timestamp = soup.GetText(tag::kTimestamp);
  if (answer.timestamp.empty()) return std::nullopt;
  const TagContainer files = soup.GetContainer(tag::kFiles);
  for (std::uint32_t i = 0; i < files.GetCount(); ++i) {
    const URL url(files.GetText(files.GetName(i)));
    if (LeadsIntoNetwork(url)) answer.lists.push_back(url);
  }
  return answer;
}

TicketAnswer ReadTicketAnswer(std::string_view file) {
  const TagContainer soup = LoadAnswer(file);
  TicketAnswer answer;
  answer.error = soup.GetText(tag::kError);
  const TagContainer tickets = soup.GetContainer(tag::kTickets);
  for (std::uint32_t i = 0; i < tickets.GetCount(); ++i) {
    const TagContainer ticket = tickets.GetContainerAt(i);
    if (!Nox::EqualsIgnoreCase(ticket.GetText(tag::kType), kFirstClass)) continue;
    float& most = ticket.GetBool(tag::kSuspended) ? answer.suspendedDays : answer.activeDays;
    most = std::max(most, DaysOf(ticket));
  }
  return answer;
}

std::vector<ProfileAnswer> ReadProfileAnswer(std::string_view file) {
  const TagContainer soup = LoadAnswer(file);
  std::vector<ProfileAnswer> profiles;
  if (soup.HasTag(tag::kError)) return profiles;
  for (std::uint32_t i = 0; i < soup.GetCount(); ++i) {
    const TagContainer result = soup.GetContainerAt(i).GetContainer(tag::kResult);
    if (result.IsEmpty()) continue;
    profiles.push_back({static_cast<std::uint32_t>(result.GetInt(tag::kProfileId)),
                        static_cast<std::uint32_t>(result.GetInt(tag::kUserId)),
                        result.GetText(tag::kUsername)});
  }
  return profiles;
}

}  // namespace morvex
