#pragma once

#include <vector>

#include "tagdata/kuid.h"

namespace morvex {

class TagContainer;

// What an asset depends on by its configuration: every KUID that is mentioned in it, each once, but for those it
// makes obsolete and its own.
std::vector<KUID> DependenciesIn(const TagContainer& config, const KUID& asset);

}  // namespace morvex
