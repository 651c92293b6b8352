#pragma once

#include <string_view>

namespace morvex {

inline constexpr std::string_view kNoAssetToEdit = "-Please specify an asset to edit";
inline constexpr std::string_view kUnknownAsset = "-The specified kuid does not exist in the database\n";

// Writes a line to standard error and answers the failure.
bool Refuse(std::string_view message);

}  // namespace morvex
