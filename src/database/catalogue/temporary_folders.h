#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "database/catalogue/folder_scan.h"

namespace morvex {

// Replacing an asset's folder goes through temporary folders beside it: the new content is made in one, and the
// old content waits in another until the new one has the proper name. A run that was killed in between leaves
// them there, in the worst case as the only copy of an asset.

// Whether a name is one that those folders get: "temp", 8 random characters, a number.
bool IsTemporaryFolder(std::string_view name);

// Gives the newest temporary copy of an asset the path that its record names, where nothing is at that path.
// Before the records are compared with the folders.
void PutBackTemporaryFolders();

// Adds the newest temporary copy of each asset that has no proper one in the pack, under a new proper name.
void AddTemporaryFolders(std::string_view pack, const std::vector<std::string>& names, AssetFolderKind kind);

}  // namespace morvex
