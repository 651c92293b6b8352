#pragma once

#include <string_view>

#include "engine/location.h"

namespace morvex {

class ResultsLog;

// Copies the files of an asset from its folder to another, as a package would take them there: by the same rules,
// under lowered names, and with all that is wrong in the log. The configuration (`config.txt`, `config.chump`) stays
// behind. No byte passes through the process where the system can copy by itself.
//
// True when everything was copied. Files and folders whose names differ by case alone are refused, since only one of
// them could arrive.
[[nodiscard]] bool CopyAssetFiles(Nox::LocationView source, std::string_view target, ResultsLog& log);

}  // namespace morvex
