#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace morvex {

class TagContainer;

// Older configurations write a list as tags with a number at the end, from 0 on. Calls `use` with the text
// of each; a tag that is missing or empty ends the list.
void ForEachNumberedTag(const TagContainer& config, std::string_view name,
                        const std::function<void(const std::string&)>& use);

}  // namespace morvex
