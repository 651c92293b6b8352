#pragma once

#include <string>

#include "tagdata/tag_container.h"

namespace QELLib {

// The chunk of a soup's child by number. Where a name stands twice, each number gives its own chunk in a tree
// in memory, and the first one's in a soup of another make.
morvex::ChunkRef ChildAt(const morvex::TagContainer& soup, uint32_t number);

// The text of a leaf, whatever it holds; empty for a name without a value.
std::string TextOf(const morvex::ACSChunk& leaf);

// A tree in memory with all tags of a soup, those that share a name too. Takes tags out of `soup` on the way.
morvex::TagContainer TakeAsTree(const morvex::TagContainer& soup);

}  // namespace QELLib
