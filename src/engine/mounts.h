#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "engine/location.h"

namespace Nox {

class ZipArchive;

// The table of packs, shared by all threads: a pack's name stands for a folder or for a read-only archive.

// Binds a name, in the place of an earlier binding. An empty path ends it. False if an archive can't be read;
// the name is unbound then. Names don't tell cases apart.
bool MountPack(PString name, std::string_view path, bool isFolder);

// Where a location leads: a path of the host, or an archive and a path inside it.
struct ResolvedLocation {
  std::string path;
  std::shared_ptr<const ZipArchive> archive;  // null for a path of the host
};

// None for a pack that isn't bound, and for a path that climbs out of its pack.
[[nodiscard]] std::optional<ResolvedLocation> ResolveLocation(LocationView location);

// The path of the host behind a location; none inside an archive and where nothing is bound.
[[nodiscard]] std::optional<std::string> ResolveHostPath(LocationView location);

}  // namespace Nox
