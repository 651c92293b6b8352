#pragma once

#include "database/operations/asset_handle.h"

namespace morvex {

struct KUID;
class ResultsLog;

// Opens an asset. For edit it gets a working copy under editing/, made from its newest committed copy, unless it
// has one already; otherwise it must have a committed copy. Empty for an unknown asset and on failure, about which
// `log` is told; it may be null.
ZEBAssetHandle ZEBOpenAsset(const KUID& kuid, bool forEdit, ResultsLog* log);

}  // namespace morvex
