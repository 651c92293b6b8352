#pragma once

namespace morvex {

struct KUID;

// Removes an asset's own folders: its edited copy, its local copy, and that in a pack unless the asset is built in.
// With `removeEntry` its record goes, too, unless the asset is built in, offered by the download station or held in
// an archive. True if there was a record; a folder that can't be removed isn't reported.
bool ZEBDeleteAsset(const KUID& kuid, bool removeEntry);

}  // namespace morvex
