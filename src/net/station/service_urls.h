#pragma once

#include <cstdint>
#include <string_view>

#include "net/transfer/download_settings.h"
#include "net/transfer/url.h"
#include "tagdata/kuid.h"

namespace morvex {

// The questions that the service's web server answers. Values stand in them as they are; a blank or a control
// character, which no request can hold, is written as its number.

// What has changed since the file that the station named last.
[[nodiscard]] URL UpdateSearchUrl(const Endpoint& webServer, std::string_view lastReceivedFile);
[[nodiscard]] URL TicketUrl(const Endpoint& webServer);
[[nodiscard]] URL ProfileUrl(const Endpoint& webServer, std::uint32_t userId);
[[nodiscard]] URL DescriptionUrl(const Endpoint& webServer, const KUID& kuid);
[[nodiscard]] URL ThumbnailUrl(const Endpoint& webServer, const KUID& kuid);

}  // namespace morvex
