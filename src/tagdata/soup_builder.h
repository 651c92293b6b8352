#pragma once

#include <cstddef>
#include <string_view>

#include "tagdata/chunk_kind.h"

namespace morvex {

class TagContainer;

// Takes the tags of a soup one after the other. Of two tags with one name in a soup the last one wins and
// stands at the later place. Names come lowered and are never empty.
class SoupBuilder {
 public:
  virtual ~SoupBuilder() = default;

  virtual void Leaf(std::string_view name, ChunkKind kind, const void* data, size_t size) = 0;
  // The text and its NUL; the empty text has no data.
  virtual void String(std::string_view name, std::string_view text) = 0;
  virtual void Remove(std::string_view name) = 0;
  // What comes until Close goes into a soup of this name. Soups that are still open at the end are complete.
  virtual void Open(std::string_view name) = 0;
  virtual void Close() = 0;

  // The soup, once all tags have come; an empty handle if there were none.
  virtual TagContainer Finish() = 0;
};

}  // namespace morvex
