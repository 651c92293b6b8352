#pragma once

#include <string>
#include <string_view>

namespace morvex::host {

// A path that a user wrote, counted from the caller's folder, as the library takes it.
std::string AbsolutePath(std::string_view path);

}  // namespace morvex::host
