#pragma once

#include "net/transfer/transfer.h"

namespace morvex {

// Fetches an "ftp:" URL from its own server, over an idle connection if there is one, under one of the permits for
// direct transfers. A partial file that isn't the beginning of the server's is fetched anew.
[[nodiscard]] TransferOutcome FetchByFtp(const TransferOrder& order, TransferControl& control,
                                         TransferSupport& support);

}  // namespace morvex
