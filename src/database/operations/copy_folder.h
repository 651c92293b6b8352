#pragma once

#include <cstdint>

#include "engine/location.h"

namespace morvex {

// Bits of the mode of ZEBCopyAssetFolder.
inline constexpr uint32_t kCopyMove = 1;   // the source folder may be taken as the new folder
inline constexpr uint32_t kCopyChump = 2;  // the new configuration is a config.chump, else a config.txt

// Replaces an asset's folder, which must exist, with the content of another one, by the rules of packages and with
// the configuration in the form asked for. False if that can't be done; the target is as it was then, and so is the
// source.
//
// Whenever the process dies, one complete copy of the old content or the new stands under the target's name, or
// beside it under a name that begins with "temp". A folder gets its configuration last, so that one that is being
// filled has none.
bool ZEBCopyAssetFolder(const Nox::Location& source, const Nox::Location& target, uint32_t mode);

}  // namespace morvex
