#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tagdata/kuid.h"
#include "tagdata/tag_container.h"

namespace morvex {

// The flat copy of a record that a query hands out.
struct ZEBAssetStatus {
  std::string name;    // the display name
  std::string region;  // region codes, separated by ';'

  bool latest = true;  // no newer version is known, or it is installed
  bool localCopy = false;
  bool installed = false;
  bool builtIn = false;
  bool dlsItem = false;
  bool onStation = false;
  bool archived = false;

  bool open = false;  // being edited
  bool hasErrors = false;
  bool missingDeps = false;
  bool permitEdit = false;
  bool permitCommit = false;
  bool permitListing = false;

  int32_t author = 0;
  std::string era;
  int64_t size = -1;              // bytes, -1: not known
  std::string_view categoryName;  // a name of the category table; lives for ever
  std::string category;

  bool pinned = false;
  bool enabled = false;
  bool cloned = false;
  bool reskin = false;

  int8_t rating = 0;
  uint64_t installedTime = 0;
  uint64_t modifiedTime = 0;
  bool found = false;

  // The state in seven letters, a capital for yes: open for Edit, Installed, Archived, on the Download station,
  // Locally modified, Missing dependencies, Errors.
  std::string Letters() const;
};

// Each takes the database lock.

// True when the asset exists; otherwise `status` is reset.
bool ZEBGetAssetStatus(const KUID& kuid, ZEBAssetStatus& status);

// True when a dependency isn't installed, at any depth. `ifMissingAsset` is the answer for an unknown KUID; when
// it is true, an asset that is known but not installed counts as missing, too.
bool ZEBHasMissingDependencies(const KUID& kuid, bool ifMissingAsset);

// What the last validation said; false for an unknown KUID.
bool ZEBHasErrors(const KUID& kuid);

// A handle on the configuration; empty when the asset is unknown or has none.
TagContainer ZEBGetAssetConfig(const KUID& kuid);

}  // namespace morvex
