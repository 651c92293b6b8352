#pragma once

#include <string_view>

namespace morvex {
class ResultsLog;
}

namespace QELLib {

class Container;

// Judges an asset's folder: a path in a pack, which is mounted for the time, or with no pack a path of the
// disk. True if its configuration and its files raised no error; the words go to `log`. Nothing is said of a
// folder without a configuration. For one thread at a time; ErrorHandler and DataManager must exist.
[[nodiscard]] bool ValidateAsset(std::string_view folder, std::string_view packName, morvex::ResultsLog& log);

// The first stage: reads a configuration into the container, or into one of its own if that is null, and
// logs whatever was found. False if it can't be read against the definitions.
bool LoadAndReport(std::string_view configPath, std::string_view packName, morvex::ResultsLog& log,
                   Container* container);

// The second stage, for the asset that was loaded last: runs the checks. True, and nothing is logged, if they
// pass.
bool CheckAndReport(Container& container, morvex::ResultsLog& log);

}  // namespace QELLib
