#pragma once

#include <string>
#include <string_view>

#include "engine/pstring.h"

namespace morvex {

// Chooses a path in `folder`, which is made if need be, at which nothing exists yet: the preferred name made
// safe, if there is one and it is free, else `prefix`, 8 random characters and a counter. `extension` goes
// behind a preferred name as it is, and behind a random one after a point. False, logged, if 100 tries found
// nothing. Makes nothing at the path itself. Any thread.
[[nodiscard]] bool CreateTemporaryFilePath(Nox::PString base, std::string_view folder,
                                           std::string_view prefix, std::string_view extension,
                                           std::string& result, std::string_view preferredName = {});

}  // namespace morvex
