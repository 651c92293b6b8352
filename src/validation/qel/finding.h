#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "validation/qel/error_handler.h"

namespace QELLib {

// What a validation found, in words that outlive it.
struct Finding {
  RecordSeverity severity = RecordSeverity::kInformation;
  std::string text;
  std::string tag;        // the tag that is meant; empty if none is
  std::string container;  // the container that is meant, or the tag's; empty for the asset as a whole
  std::string place;      // the names on the way down to it, with '/' between them
  bool dropped = false;   // the results log isn't told: information, and what a stage found that passed
};

// Judges an asset as ValidateAsset does, with the same answer, and appends all that was found. None says that the
// folder has no configuration.
bool InspectAsset(std::string_view folder, std::string_view packName, std::vector<Finding>& findings);

}  // namespace QELLib
