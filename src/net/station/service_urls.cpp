#include "net/station/service_urls.h"

#include <string>

#include "engine/format.h"

namespace morvex {
namespace {

constexpr const char* kUpdateSearch =
    "/games/gamefiles/morvex/scripts/RecordManager/client.php?LASTRECEIVEDFILE=%s";
constexpr const char* kTicket = "/games/gamefiles/morvex/scripts/FCT.php";
constexpr const char* kProfile = "/games/gamefiles/morvex/scripts/profile_details.php?SearchCriteria=%d";
constexpr const char* kDescription =
    "/games/gamefiles/morvex/scripts/asset_description.php?SearchCriteria=%s";
constexpr const char* kThumbnail = "/games/gamefiles/morvex/scripts/asset_thumbnail.php?SearchCriteria=%s";

std::string Sendable(std::string_view value) {
  std::string text;
  for (const char c : value) {
    if (static_cast<unsigned char>(c) > ' ' && c != '\x7f') {
      text += c;
    } else {
      Nox::AppendFormat(text, "%%%02X", static_cast<unsigned char>(c));
    }
  }
  return text;
}

template <typename... Args>
URL Question(const Endpoint& webServer, const char* format, const Args&... args) {
  const std::string text = Nox::FormatText(format, args...);
  const std::string_view whole = text;
  const std::size_t query = whole.find('?');
  URL url = ServerUrl(webServer);
  url.SetPath(whole.substr(0, query));
  if (query != whole.npos) url.query.Set(whole.substr(query));
  return url;
}

}  // namespace

URL UpdateSearchUrl(const Endpoint& webServer, std::string_view lastReceivedFile) {
  return Question(webServer, kUpdateSearch, Sendable(lastReceivedFile));
}

URL TicketUrl(const Endpoint& webServer) {
  return Question(webServer, kTicket);
}

URL ProfileUrl(const Endpoint& webServer, std::uint32_t userId) {
  return Question(webServer, kProfile, static_cast<std::int32_t>(userId));
}

URL DescriptionUrl(const Endpoint& webServer, const KUID& kuid) {
  return Question(webServer, kDescription, kuid.TagText());
}

URL ThumbnailUrl(const Endpoint& webServer, const KUID& kuid) {
  return Question(webServer, kThumbnail, kuid.TagText());
}

}  // namespace morvex
