#pragma once

#include <string>
#include <string_view>

namespace morvex {

class TagContainer;

// The category class of an asset is a category string such as "TR;TV;LOCO".

// The class behind a letter code of old configurations, in any case; empty if there is none. An empty kind
// fits every row.
std::string_view ClassFromLegacyCode(std::string_view kind, std::string_view code);

// The class that follows from a kind and a type (a category string in any case), or empty.
std::string_view ClassFromKindAndType(std::string_view kind, std::string_view type);

// The kind whose class has no token that `categoryClass` lacks, or empty.
std::string_view KindFromClass(std::string_view categoryClass);

// The class of an asset, worked out from its configuration.
std::string GetCategoryClass(const TagContainer& config);

// True if each token of the text, a category string or expression, is in CategoryTokens.
bool IsValidCategoryClass(std::string_view text);

}  // namespace morvex
