#pragma once

#include <string_view>

namespace morvex {

class TagContainer;

// Assets of builds before 2.5 name their files after their folder. One that says nothing else gets the folder's
// name as `asset-filename`, so that it keeps that name where its folder's name stops meaning anything.
void ApplyFileNameRule(TagContainer& config, std::string_view folderPath);

}  // namespace morvex
