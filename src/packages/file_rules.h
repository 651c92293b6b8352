#pragma once

#include <string_view>

namespace morvex {

// Which files of an asset may travel in a package, and under which names.

// True for names of letters, digits and a few marks that don't begin with a blank, '.' or '~' and don't end
// in a blank. No separator passes, so a valid name is one component of a path and never ".." or hidden.
[[nodiscard]] bool IsValidName(std::string_view name);

// True for files that other programs leave behind and that are passed over without a word.
[[nodiscard]] bool IsIgnoredFile(std::string_view name);

// True if the file is of a type that an asset may hold.
[[nodiscard]] bool HasAllowedExtension(std::string_view path);

}  // namespace morvex
