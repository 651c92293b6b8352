#pragma once

#include <string>
#include <vector>

#include "engine/location.h"

namespace morvex {

// What the walk through an asset's folder came upon.
enum class WalkFinding {
  kFile,    // a file that may travel
  kFolder,  // what is in it follows, up to kFolderEnd
  kFolderEnd,
  kUnlistedFolder,  // a folder that can't be listed, or one that links lead into for ever
  kBadName,
  kBadExtension,
  kUnreadableFile,  // a link that leads out of the asset's folder
};

// False for all that is wrong with a folder.
constexpr bool IsTaken(WalkFinding finding) {
  return finding == WalkFinding::kFile || finding == WalkFinding::kFolder ||
         finding == WalkFinding::kFolderEnd;
}

struct WalkEntry {
  WalkFinding finding;
  std::string path;  // in the pack that was walked
  std::string name;  // as it stands in its folder; empty for kFolderEnd and kUnlistedFolder
};

// Walks an asset's folder and all below it in Find order, what is in a folder right behind it, and judges each
// entry by the file rules. Ignored files aren't delivered. The folder itself has no entry, unless it can't be
// listed. No file is opened.
//
// An asset is what lies in its folder: a link to a place inside it stands for that place, a link to anything else
// is a file that can't be read, so that nobody packs private files by accident.
[[nodiscard]] std::vector<WalkEntry> WalkAssetFolder(Nox::LocationView folder);

}  // namespace morvex
