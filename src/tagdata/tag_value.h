#pragma once

#include <string_view>

#include "tagdata/acs_chunk.h"

namespace morvex {

// The data of a tag as data of a wanted kind: its own bytes, or what they convert to. Nothing if they don't.
// Looks at the tag, which must outlive it.
class TagValue {
 public:
  TagValue(const ACSChunk& tag, ChunkKind wanted);

  std::string_view Bytes() const { return bytes_; }
  // Up to the first NUL.
  std::string_view Text() const { return bytes_.substr(0, bytes_.find('\0')); }

 private:
  Raw converted_;
  std::string_view bytes_;
};

}  // namespace morvex
