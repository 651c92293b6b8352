#include "tagdata/replace_stream.h"

#include <algorithm>
#include <span>

namespace morvex {

// What goes over bytes written before mustn't reach beyond them.
size_t ReplaceStream::WriteRaw(const void* data, size_t count) {
  const std::span bytes(static_cast<const uint8_t*>(data), count);
  const bool done = position_ == Length() ? file_.Write(bytes)
                                          : position_ + static_cast<int64_t>(count) <= Length() &&
                                                file_.WriteAt(static_cast<uint64_t>(position_), bytes);
  if (!done) return 0;
  position_ += static_cast<int64_t>(count);
  return count;
}

void ReplaceStream::SeekRaw(int64_t offset, Origin origin) {
  const int64_t from = origin == kFromStart ? 0 : origin == kFromEnd ? Length() : position_;
  position_ = std::clamp<int64_t>(from + offset, 0, Length());
}

}  // namespace morvex
