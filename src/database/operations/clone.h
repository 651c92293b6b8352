#pragma once

#include "database/operations/asset_handle.h"

namespace morvex {

struct KUID;
class ResultsLog;

// Makes a new asset out of a committed one, under a new KUID, or with `newVersion` the next version of it, which
// only its author may do, and only with the latest version. The handle is on the new asset, open for edit; empty on
// failure, about which `log` is told. `log` may be null.
ZEBAssetHandle ZEBCloneAsset(const KUID& kuid, bool newVersion, ResultsLog* log);

}  // namespace morvex
