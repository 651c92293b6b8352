#pragma once

namespace morvex {

class ZEBAssetHandle;

// Throws the edited copy of an asset away. An asset that has nothing else leaves the database, and the handle and
// its copies become empty. False for an empty handle and for an asset that isn't open.
bool ZEBRevertAssetEdits(const ZEBAssetHandle& handle);

}  // namespace morvex
