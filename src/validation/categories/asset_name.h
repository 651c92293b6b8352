#pragma once

#include <string>
#include <string_view>

namespace morvex {

class TagContainer;

// The display name of an asset: the tag `username` or `name`, else the last folder of `folderPath`, cleaned.
std::string GetAssetName(const TagContainer& config, std::string_view folderPath);

// A name without blanks and '_' at its ends, then without one quote mark at either end; "Untitled" if
// nothing is left.
std::string CleanAssetName(std::string_view text);

// The build that a configuration was written for. Without a sound `morvex-build` it is guessed from tags
// that came with build 2.0.
float GetBuildVersion(const TagContainer& config);

}  // namespace morvex
