#include "tagdata/stream.h"

#include <algorithm>

namespace morvex {

// A refill keeps the last bytes that were consumed, so that small steps back stay inside the read-ahead.
size_t TStream::Refill(uint8_t* data, size_t count) {
  const size_t tail = bufferedBytes;
  Take(data, tail);
  data += tail;
  count -= tail;
  if (count >= kBufferSize - kLookBehind) {
    DropReadAhead();
    return tail + ReadRaw(data, count);
  }

  const size_t consumed = static_cast<size_t>(bufferPos);
  const size_t kept = std::min(consumed, kLookBehind);
  if (kept != 0) std::memmove(buffer.data(), buffer.data() + consumed - kept, kept);
  const size_t arrived = ReadRaw(buffer.data() + kept, kBufferSize - kept);
  bufferPos = static_cast<int32_t>(kept);
  bufferedBytes = static_cast<uint32_t>(arrived);
  const size_t taken = std::min(count, arrived);
  Take(data, taken);
  return tail + taken;
}

size_t TStream::Write(const void* data, size_t count) {
  if (count == 0) return 0;
  if (bufferedBytes != 0) SeekRaw(0, kFromCurrent);
  // What was consumed goes too: a step back must find the bytes that are written now.
  DropReadAhead();
  const size_t written = WriteRaw(data, count);
  if (written != count) writeFailed_ = true;
  return written;
}

int64_t TStream::Size() {
  const int64_t here = Position();
  SeekRaw(0, kFromEnd);
  DropReadAhead();
  const int64_t size = Position();
  SeekTo(here);
  return size;
}

// A move of the read position that the read-ahead can make alone.
bool TStream::MoveInside(int64_t delta) {
  if (delta < -static_cast<int64_t>(bufferPos) || delta > static_cast<int64_t>(bufferedBytes)) return false;
  bufferPos = static_cast<int32_t>(bufferPos + delta);
  bufferedBytes = static_cast<uint32_t>(bufferedBytes - delta);
  return true;
}

void TStream::SeekTo(int64_t position) {
  if (MoveInside(position - Position())) return;
  SeekRaw(position, kFromStart);
  DropReadAhead();
}

void TStream::Skip(int64_t count) {
  if (MoveInside(count)) return;
  SeekRaw(count, kFromCurrent);
  DropReadAhead();
}

void TStream::UnreadByte() {
  if (ReadAheadEmpty() && AtEnd()) return;
  Skip(-1);
}

void TStream::WriteByte(uint8_t value) {
  Write(&value, 1);
}

void TStream::WriteU16(uint16_t value) {
  const uint8_t bytes[2] = {static_cast<uint8_t>(value), static_cast<uint8_t>(value >> 8)};
  Write(bytes, sizeof bytes);
}

void TStream::WriteU32(uint32_t value) {
  const uint8_t bytes[4] = {static_cast<uint8_t>(value), static_cast<uint8_t>(value >> 8),
                            static_cast<uint8_t>(value >> 16), static_cast<uint8_t>(value >> 24)};
  Write(bytes, sizeof bytes);
}

int64_t TStream::BeginSizeField() {
  constexpr uint32_t kPlaceholder = 0xFEEDCEEB;
  const int64_t position = Position();
  WriteU32(kPlaceholder);
  return position;
}

void TStream::PatchU32(int64_t position, uint32_t value) {
  const int64_t here = Position();
  SeekTo(position);
  WriteU32(value);
  SeekTo(here);
}

void TStream::EndSizeField(int64_t position) {
  PatchU32(position, static_cast<uint32_t>(Position() - position - 4));
}

}  // namespace morvex
