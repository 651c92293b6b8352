#pragma once

#include "engine/location.h"

namespace morvex {

class ZEBAssetInfo;

// Where the copies of an asset lie, as a pack and a path in it, or as a full path with no pack. The path is
// empty where the record has no such copy.
Nox::Location EditLocation(const ZEBAssetInfo& record);
Nox::Location LocalLocation(const ZEBAssetInfo& record);
Nox::Location PackLocation(const ZEBAssetInfo& record);
// The newest committed copy: the local one, else that of the pack.
Nox::Location CommittedLocation(const ZEBAssetInfo& record);
// The copy whose configuration speaks for the asset: local, else pack, else edit.
Nox::Location ConfigLocation(const ZEBAssetInfo& record);

}  // namespace morvex
