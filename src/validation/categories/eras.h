#pragma once

#include <string>
#include <string_view>

namespace morvex {

class TagContainer;

// An era list is a category string of years.

// Adds the year that `text` names as "1950", "1950s", "50" or "50s"; other text is ignored. A year may come
// twice.
void AddEra(std::string_view text, std::string& list);

// The eras of an asset, from the tags of newer or older builds.
std::string GetEraList(const TagContainer& config);

// The era of a year: its decade from 1900 to 1990, "2000" for later years and "1900" for earlier ones.
std::string EraFromYear(int year);

}  // namespace morvex
