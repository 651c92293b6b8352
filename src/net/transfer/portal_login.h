#pragma once

#include <string_view>

#include "net/transfer/transfer.h"

namespace morvex {

// The scheme of the URL that stands for the login at the service's web server, "qslogin://".
inline constexpr std::string_view kLoginScheme = "qslogin";

// Logs in at the web server with the name and the password of the settings, and keeps the cookies that it gives.
// Without a name or a password nothing is sent. The local file holds the answer for the time and is gone after.
[[nodiscard]] TransferOutcome LogInAtPortal(std::string_view localFile, TransferControl& control,
                                            TransferSupport& support);

}  // namespace morvex
