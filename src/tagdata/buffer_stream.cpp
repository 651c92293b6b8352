#include "tagdata/buffer_stream.h"

namespace morvex {

void TBuffer::Truncate() {
  DropReadAhead();
  memory_.Clear();
}

int64_t TBuffer::Position() {
  return static_cast<int64_t>(memory_.Position()) - static_cast<int64_t>(bufferedBytes);
}

void TBuffer::SeekRaw(int64_t offset, Origin origin) {
  if (origin == kFromCurrent) offset += Position();
  if (origin == kFromEnd) offset += static_cast<int64_t>(memory_.Length());
  memory_.Seek(offset < 0 ? 0 : static_cast<size_t>(offset));
}

bool TBuffer::AtEnd() {
  return Position() >= static_cast<int64_t>(memory_.Length());
}

}  // namespace morvex
