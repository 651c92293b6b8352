#pragma once

#include <string_view>

namespace morvex {

inline constexpr const char* kKeywordsDump = "KeywordsDump.dat";

// Writes the search words of all assets to KeywordsDump.dat in the root. True when the file was written.
bool ZEBDumpKeywords();

// Reads such a file and gives the assets that are known the keywords in it. `format` is "txt" or "chump". False
// if the file can't be read or holds nothing.
bool ZEBImportKeywords(std::string_view base, std::string_view name, std::string_view format);

}  // namespace morvex
