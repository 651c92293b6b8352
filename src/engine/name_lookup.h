#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Nox {

// Names are found without regard to ASCII case: each component is the entry of exactly that name if there is
// one, else the first in Find order that differs in case alone. No folder is listed when the path exists as
// it is written.

// The path of something that exists. None if nothing does under that name, or if the path can't be one.
[[nodiscard]] std::optional<std::string> FindExisting(std::string_view path);

// The path as a new file is to be made under: the existing part as found on the disk, the rest as given.
// What exists is found like above. None only if the path can't be one.
[[nodiscard]] std::optional<std::string> ResolveCase(std::string_view path);

}  // namespace Nox
