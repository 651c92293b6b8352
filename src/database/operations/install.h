#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace morvex {

class ResultsLog;

// Brings assets in from outside. `flags` are those of ZEBInstallAsset (install_asset.h), `outFlag` is that of
// ZEBCommitAssetEdits; `log` is told of each asset and may be null.

// Installs the assets of a package file, in the file's order, and goes on behind one that fails. The number of
// assets that were installed.
size_t ZEBInstallPackageFile(std::string_view path, ResultsLog* log, uint32_t flags, uint8_t* outFlag);

// Installs a folder that holds a configuration, or else every such folder found below it, replacing what is
// installed; the assets stay open for edit. The number of asset folders found, installed or not. The walk ends when
// the byte at `cancelFlag`, which may be null, isn't 0.
size_t ZEBInstallFromPath(std::string_view path, ResultsLog* log, uint8_t* outFlag,
                          const std::atomic<uint8_t>* cancelFlag);

}  // namespace morvex
