#pragma once

#include <string_view>

#include "engine/pstring.h"
#include "tagdata/raw.h"

namespace morvex {

class ResultsLog;
class TagContainer;

// From an asset's folder to the `files` soup of a package. `base` is a pack's name, or empty for paths of the host.
// Each operation goes on behind what it can't take, so that the log tells all that is wrong at once, in the order
// of the walk (asset_walk.h).

// Flag of AddFolder: pass over files of types that an asset may not hold without a word.
inline constexpr unsigned kPassOverOtherFiles = 1;

// Adds all that is in a folder to `files`, coded on several threads. True when everything went in; otherwise the
// soup holds what could be taken.
[[nodiscard]] bool AddFolder(TagContainer& files, Nox::PString base, std::string_view path,
                             std::string_view compression, ResultsLog& log, unsigned flags = 0);

// Reads and codes one file. False leaves `raw` empty.
[[nodiscard]] bool AddFile(Raw& raw, Nox::PString base, std::string_view path, std::string_view compression,
                           ResultsLog& log);

// True if AddFolder would take all names and types. Opens no file.
[[nodiscard]] bool CheckFolder(Nox::PString base, std::string_view path, ResultsLog& log);

}  // namespace morvex
