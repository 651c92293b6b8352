#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "packages/package_item.h"
#include "tagdata/kuid.h"
#include "tagdata/raw.h"
#include "tagdata/tag_container.h"

namespace morvex::host {

// What lies in a package, laid out flat. Shares the package's bytes.

struct PackagedFile {
  std::string path;        // in the asset's folder
  bool isData = true;      // false for a tag that holds something else than a file
  int64_t plainSize = -1;  // bytes, as the file itself says; -1: it can't say
  Raw coded;               // as it is stored
};

struct PackagedAsset {
  KUID kuid;
  std::string name;
  PackageItem item;
  std::vector<PackagedFile> files;  // in the order of the package
};

// Of a package that OpenArchive let pass.
std::vector<PackagedAsset> ReadAssets(const TagContainer& package);

// One thing that is wrong with a package.
struct PackageFault {
  bool isError = false;  // an install would fail; otherwise it would leave something out
  std::string asset;     // KUID; empty for the package as a whole
  std::string file;      // empty for the asset as a whole
  std::string text;
};

// Decodes every file, on several threads, and compares what the package says of itself with what it holds.
std::vector<PackageFault> FindFaults(const TagContainer& package, const std::vector<PackagedAsset>& assets);

}  // namespace morvex::host
