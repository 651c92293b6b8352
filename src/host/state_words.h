#pragma once

#include <string>

namespace morvex {
struct ZEBAssetStatus;
}

namespace morvex::host {

// The state of an asset for people, as "installed, open for edit, dependencies missing".
std::string StateWords(const ZEBAssetStatus& status);

}  // namespace morvex::host
