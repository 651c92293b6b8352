#pragma once

#include <string>
#include <string_view>

#include "engine/pstring.h"

namespace morvex {

// Files by a base and a path. With a base the path lies in that folder of the installation; without one it
// must be absolute. Not for the entries of packs, but for DiskExists.

// The installation's root, set once at start-up, before other threads.
void SetRootPath(std::string_view root);
const std::string& GetRootPath();

// The base may be the name of a pack. A relative path without a base counts as existing, so that nobody
// takes its name for free.
[[nodiscard]] bool DiskExists(Nox::PString base, std::string_view path);

// Removes a file or a folder with its content. Refused, with nothing removed, unless the path leads below
// the root: ".." is worked out, and no link on the way may lead out. A link is removed itself.
bool DiskDelete(Nox::PString base, std::string_view path);

bool DiskRename(Nox::PString base, std::string_view fromPath, std::string_view toPath);
// With its parents; true if it is there already.
bool DiskMakeDir(Nox::PString base, std::string_view path);
// An existing target is replaced. Without a base a path is taken as it is.
bool DiskCopy(Nox::PString fromBase, std::string_view fromPath, Nox::PString toBase, std::string_view toPath);

}  // namespace morvex
