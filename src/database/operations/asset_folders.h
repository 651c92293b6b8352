#pragma once

namespace morvex {

class ZEBAssetInfo;

// New folders for a copy of an asset, empty and entered in the record. Under a write hold. False if the record
// has such a copy already, or if the folder can't be made.

// Below editing/, named after the asset where that name is free.
bool MakeEditFolder(ZEBAssetInfo& record);
// Below local/, never named after the asset.
bool MakeLocalFolder(ZEBAssetInfo& record);

}  // namespace morvex
