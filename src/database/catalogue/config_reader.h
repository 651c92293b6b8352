#pragma once

#include <string_view>

#include "engine/location.h"
#include "tagdata/tag_container.h"

namespace morvex {

class ZEBAssetInfo;

inline constexpr std::string_view kConfigText = "config.txt";
inline constexpr std::string_view kConfigChump = "config.chump";
// More than any configuration; a larger file isn't worth the memory.
inline constexpr size_t kMaxConfig = size_t{256} << 20;

// The configuration in an asset's folder: config.chump if it is there and sound, else config.txt. Empty if there
// is none, or nothing in it. The pack of the location must be mounted.
TagContainer ReadConfig(const Nox::Location& folder);

// The configuration that speaks for a record; its pack is mounted for the time of the read. Empty if the record
// has no path.
TagContainer ReadConfig(const ZEBAssetInfo& record);

// The configuration in the bytes of such a file. Any thread.
TagContainer ParseConfigText(std::string_view text);
TagContainer ParseConfigChump(std::string_view image);

}  // namespace morvex
