#pragma once

#include <string_view>

#include "engine/pstring.h"
#include "tagdata/raw.h"

namespace morvex {

class TagContainer;

// From the `files` soup of a package to a folder. Both give an error text, empty on success.

// Writes all files into a folder, which is made if need be; decoded on several threads. What the file rules
// wouldn't have let into a package is passed over without a word, so nothing is written outside the folder. A
// file that can't be written doesn't stop the others; the text is that of the last in the soup's order.
[[nodiscard]] Nox::PString ExtractFiles(const TagContainer& files, std::string_view compression,
                                        std::string_view folder);

// Writes one file. A damaged one leaves an empty file behind.
[[nodiscard]] Nox::PString WriteFile(const Raw& raw, std::string_view compression, std::string_view path);

}  // namespace morvex
