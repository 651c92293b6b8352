#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tagdata/kuid.h"

namespace morvex {

// One line of a list of the download station, fields separated by single blanks:
//
//   <kuid2:1:2:3> scenery 2.9 Water crane
//
// the KUID, the kind, the build, and the name, which goes to the end of the line.
struct AssetListLine {
  KUID kuid;
  std::string_view kind;
  float build = 0;
  std::string_view name;
};

// Nothing for a line that doesn't begin with a KUID.
[[nodiscard]] std::optional<AssetListLine> ParseAssetListLine(std::string_view line);

struct AssetListMerge {
  std::size_t merged = 0;   // lines that were taken over
  std::size_t refused = 0;  // lines that aren't of this form
  std::string fault;  // what is wrong with the file, empty if nothing; what came before it was taken over
};

// Takes a list, gzip or plain, over into the tables: each asset is on the station, and gets what its record lacks.
// Unknown assets get records. Under a write hold of the database.
[[nodiscard]] AssetListMerge MergeAssetList(const std::string& path);

}  // namespace morvex
