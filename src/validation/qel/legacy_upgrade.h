#pragma once

namespace morvex {
class TagContainer;
}

namespace QELLib {

// Builds from this one on use the present vocabulary.
inline constexpr float kFirstPresentBuild = 2.5f;

// Rewrites a configuration of an older build, a tree in memory, until it reads as one of build 2.7: a definition
// knows only the present vocabulary. Some rewrites look at meshes of the asset that the DataManager holds; one that
// can't be loaded leaves out only what would have been read from it. Nothing is reported, and no file is written.
void UpgradeLegacyConfig(morvex::TagContainer& config);

}  // namespace QELLib
