#pragma once

#include <cstdint>

namespace morvex {

class ResultsLog;
class ZEBAssetHandle;

// Bits of the flags of ZEBCommitAssetEdits.
inline constexpr uint32_t kCommitKeepOpen = 1;   // copy in place of moving, and keep the edit folder
inline constexpr uint32_t kCommitToPack = 2;     // turn the local copy into an asset of the pack "local"
inline constexpr uint32_t kCommitUnchecked = 4;  // don't check the names and types of the files

// Makes the edited copy of an asset its local copy, with the configuration in its binary form. The time doesn't
// depend on the asset's size where the disk can rename. The handle must be one for edit, and ceases to be.
//
// False, with the reason in `log`, if it can't be done: the asset stays open then and its edit folder as it was.
// `log` may be null. `outFlag`, if not null, becomes 1 when the edit folder couldn't be removed.
bool ZEBCommitAssetEdits(ZEBAssetHandle& handle, uint32_t flags, ResultsLog* log, uint8_t* outFlag);

}  // namespace morvex
