#pragma once

#include <string>

#include "tagdata/tag_container.h"

namespace morvex {

// The store in which the programs of the family record themselves: a text soup of the user, with a container
// for each product family, in it one for each entry, named by a number, and in that the values as strings.
// Names don't tell cases apart. A missing file is an empty registry.

// $MORVEX_PRODUCTS, else products.txt in the user's configuration folder. Empty if no place is known.
[[nodiscard]] std::string ProductRegistryPath();

[[nodiscard]] TagContainer LoadProductRegistry();
// Replaces the file as a whole; its folder is made if need be.
[[nodiscard]] bool SaveProductRegistry(const TagContainer& registry);

// The tag under which a name stands.
[[nodiscard]] Nox::PString RegistryTag(std::string_view name);
// The container of that name, made if it is missing.
TagContainer RegistryContainer(TagContainer& parent, std::string_view name);

}  // namespace morvex
