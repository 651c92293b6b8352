#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/location.h"
#include "host/asset_entry.h"
#include "tagdata/kuid.h"

namespace morvex::host {

class Console;

// What stands against an asset, in words.
struct ReportProblem {
  enum class Kind : char { kError = 'e', kWarning = 'w', kMissing = 'm', kObsolete = 'o', kOpen = 'i' };

  Kind kind;
  std::string text;
};

struct ReportAsset {
  AssetEntry entry;
  std::string className;
  std::string authorName;
  Nox::Location folder;  // of the copy that speaks for it; empty path if it has none
  std::vector<ReportProblem> problems;
  std::string thumbnail;  // a JPEG file in Base64; empty if it has no picture
};

// Something that isn't installed, and the places of those who need it.
struct MissingAsset {
  KUID kuid;
  std::string name;
  std::vector<size_t> neededBy;
};

struct ReportData {
  std::vector<ReportAsset> assets;  // by name
  std::vector<MissingAsset> missing;
};

struct ReportScope {
  bool allKnown = false;     // also what isn't installed
  bool validateAll = false;  // otherwise only what the last commit found faulty, and of that only so many
};

// Gathers what the database and the folders tell. The installation must be open. When the run is interrupted, the
// data are cut short.
ReportData GatherReport(const Console& console, const ReportScope& scope);

// The pictures, made on several threads. The database isn't needed any more.
void AddThumbnails(const Console& console, ReportData& data);

}  // namespace morvex::host
