#pragma once

#include <string>
#include <string_view>

namespace Nox {

// Where a path of the host leads once all links are followed; empty if it leads nowhere.
[[nodiscard]] std::string RealPath(std::string_view path);

// True if one real path is another or lies below it. Nothing lies in the empty one.
[[nodiscard]] bool IsWithin(std::string_view realFolder, std::string_view real);

}  // namespace Nox
