#pragma once

#include <string>

#include "net/transfer/transfer.h"

namespace morvex {

// Fetches a URL to a place of the caller's, on the calling thread. What an earlier fetch of it left there is gone on
// with, unless it is to begin `anew`; if it fails, what has come stays for the next one.
[[nodiscard]] TransferOutcome FetchToFile(const URL& url, const std::string& target, bool anew,
                                          TransferControl& control, TransferSupport& support);

}  // namespace morvex
