#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/location.h"
#include "tagdata/kuid.h"
#include "validation/qel/finding.h"

namespace morvex::host {

// What the validation says of one asset's folder. Nothing of the installation changes by it. An installation must be
// open.
struct AssetCheck {
  KUID kuid;             // the null KUID if the configuration tells none
  std::string name;      // by the configuration
  std::string path;      // of the folder
  bool isClean = false;  // no error
  std::vector<QELLib::Finding> findings;
};

// The copy that speaks for an installed asset: the one that is open for edit, since the next commit judges it, else
// the committed one. None for an unknown asset and for one without a copy.
std::optional<AssetCheck> CheckInstalled(const KUID& kuid);

// A folder of the disk that holds a configuration.
AssetCheck CheckFolder(const std::string& path);

// The folders with a configuration at and below `path`, in order; what lies below such a folder belongs to it.
std::vector<std::string> FindAssetFolders(const std::string& path);

// "error", "warning" or "information".
std::string_view SeverityName(QELLib::RecordSeverity severity);

}  // namespace morvex::host
