#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "tagdata/container_tag.h"

namespace morvex {

// What was changed in one soup of a loaded file.
struct SoupChanges {
  // Chunks of the body that are gone, by where their data begins.
  std::unordered_set<const uint8_t*> removed;
  uint32_t removals = 0;  // so many there were, for views that remember numbers of chunks
  // New children, behind those of the body.
  Nox::Ref<TDBContainerTag> added = Nox::MakeRef<TDBContainerTag>();
};

// The changes of one loaded file, by where each soup's data begins: no two chunks of a body begin their data
// at one place.
class BinaryChanges {
 public:
  // Null if the soup wasn't changed.
  SoupChanges* Find(const uint8_t* soup) {
    const auto found = soups_.find(soup);
    return found == soups_.end() ? nullptr : &found->second;
  }
  SoupChanges& Of(const uint8_t* soup) { return soups_[soup]; }

 private:
  std::unordered_map<const uint8_t*, SoupChanges> soups_;
};

}  // namespace morvex
