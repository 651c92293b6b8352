#pragma once

#include <initializer_list>
#include <utility>

#include "tagdata/tag_container.h"

// A configuration of string tags.
inline morvex::TagContainer ConfigOf(std::initializer_list<std::pair<const char*, const char*>> tags) {
  morvex::TagContainer config;
  for (const auto& [name, value] : tags)
    config.SetString(Nox::PString(name), value);
  return config;
}
