#pragma once

#include "packages/package_item.h"

namespace morvex {

struct KUID;
class ResultsLog;

// One committed asset in package form: the tags of its configuration in their order, the compression, its files.
// An empty item, with the reason in `log`, for one that can't be read or is open for edit. `log` may be null.
PackageItem ZEBMakeAssetPackage(const KUID& kuid, ResultsLog* log);

}  // namespace morvex
