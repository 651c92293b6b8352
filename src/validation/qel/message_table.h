#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/pstring.h"

namespace QELLib {

// The language of the installed product with the highest build; empty if there is none. Takes over the
// thread's locale.
[[nodiscard]] std::string ProductLanguage();

// The message texts of a language, by number. The file's tags are named by number and may stand in any
// order; a text for each number below their count, empty where none is given.
[[nodiscard]] std::vector<Nox::PString> ReadMessageTable(std::string_view folder, std::string_view language);

}  // namespace QELLib
