#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "packages/package_item.h"

namespace morvex {

class ResultsLog;

// Bits of the flags of ZEBInstallAsset.
inline constexpr uint32_t kInstallReplace = 1;  // also over an installed asset, which stays open for edit then
inline constexpr uint32_t kInstallCommit = 2;   // finish with a commit; else the asset stays open for edit
inline constexpr uint32_t kInstallToPack = 4;   // that commit turns it into a pack asset, its files unchecked

// Installs one asset out of a package. `resultKuid` becomes its KUID, or the null KUID on failure, about which `log`
// is told. `outFlag` is that of ZEBCommitAssetEdits.
void ZEBInstallAsset(KUID& resultKuid, const PackageItem& item, ResultsLog* log, uint32_t flags,
                     uint8_t* outFlag);

// What an install takes: a configuration in package form, and something that fills the asset's empty folder with
// its files, false if it can't.
struct InstallContent {
  PackageItem config;
  std::function<bool(const std::string& folder)> writeFiles;
};

// The same from anywhere.
void InstallAssetContent(KUID& resultKuid, const InstallContent& content, ResultsLog* log, uint32_t flags,
                         uint8_t* outFlag);

}  // namespace morvex
