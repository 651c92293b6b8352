#pragma once

#include <string>
#include <string_view>

namespace morvex {

class TagContainer;

// Regions are written as a code of two letters; a region list is a category string of codes.

// The name that belongs to the first two letters of `code`, compared with case; empty if there is none.
std::string_view RegionNameFromCode(std::string_view code);
// The code of a name in any case, or empty.
std::string RegionCodeFromName(std::string_view name);
// True if the first two letters of `text` are a code.
bool IsRegionCode(std::string_view text);

// Adds the region that `text` is a code or a name of, in any case; other text is ignored.
void AddRegion(std::string_view text, std::string& list);

// The regions of an asset, from whichever of the tags of newer and older builds its configuration has.
std::string GetRegionList(const TagContainer& config);

}  // namespace morvex
