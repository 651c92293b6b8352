#pragma once

#include "database/operations/asset_handle.h"

namespace morvex {

struct KUID;

// Makes the record of a new asset and opens it for edit. The null KUID takes a new one; a KUID that is known gives
// an empty handle. With `writeStub` the edit folder gets a config.txt that names the asset and no kind yet.
ZEBAssetHandle ZEBCreateAsset(const KUID& kuid, bool writeStub);

}  // namespace morvex
