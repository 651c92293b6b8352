#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "engine/format.h"
#include "engine/pstring.h"

namespace morvex {

// The byte stream of all file formats: a read-ahead of 4096 bytes over an unbuffered stream, and typed
// helpers, all little-endian. Writes are never buffered. Belongs to one thread at a time.
//
// Streams report no errors: a short read leaves the rest of its target as it was (a number reads as 0), and
// format readers compare positions or ask AtEnd.
class TStream {
 public:
  enum Origin { kFromStart = 0, kFromCurrent = 1, kFromEnd = 2 };

  // Counts in front of strings above this write as an empty string, and read as one that is passed over.
  static constexpr uint32_t kMaxStringCount = 65535;

  TStream() = default;
  TStream(const TStream&) = delete;
  TStream& operator=(const TStream&) = delete;

  virtual ~TStream() = default;
  // Empties the stream.
  virtual void Truncate() = 0;
  // Where the next byte is read or written: what lies in the read-ahead isn't passed yet.
  virtual int64_t Position() = 0;
  virtual bool IsOpen() = 0;
  virtual int64_t Size();
  // Unbuffered; both return the bytes written or read.
  virtual size_t WriteRaw(const void* data, size_t count) = 0;
  virtual size_t ReadRaw(void* data, size_t count) = 0;
  // Moves the underlying position; an offset from the current one counts from Position(). The caller drops
  // the read-ahead behind it.
  virtual void SeekRaw(int64_t offset, Origin origin) = 0;
  virtual bool AtEnd() = 0;

  // Returns the bytes that arrived.
  size_t Read(void* data, size_t count) {
    if (count > bufferedBytes) return Refill(static_cast<uint8_t*>(data), count);
    Take(static_cast<uint8_t*>(data), count);
    return count;
  }
  uint8_t ReadByte();
  uint16_t ReadU16();
  uint32_t ReadU32();
  // Several words in a row, as records hold them.
  template <typename... Words>
  void ReadU16s(Words&... words) {
    ((words = ReadU16()), ...);
  }
  template <typename... Words>
  void ReadU32s(Words&... words) {
    ((words = ReadU32()), ...);
  }

  // Writes at Position(). Returns the bytes written.
  size_t Write(const void* data, size_t count);
  // True once any write took less than it was given, on a full disk for one.
  bool WriteFailed() const { return writeFailed_; }
  void WriteByte(uint8_t value);
  void WriteU16(uint16_t value);
  void WriteU32(uint32_t value);
  template <typename... Words>
  void WriteU16s(Words... words) {
    (WriteU16(words), ...);
  }
  template <typename... Words>
  void WriteU32s(Words... words) {
    (WriteU32(words), ...);
  }

  void SeekTo(int64_t position);
  void Skip(int64_t count);
  // Steps back over one byte; does nothing at the end of the stream.
  void UnreadByte();
  // True when nothing is left that was read ahead.
  bool ReadAheadEmpty() const { return bufferedBytes == 0; }

  // Expands `format` as engine/format.h says and writes the characters without a terminator.
  template <typename... Args>
  void Printf(std::string_view format, const Args&... args) {
    const std::string text = Nox::FormatText(format, args...);
    Write(text.data(), text.size());
  }

  // A size field is a u32 that is patched with the count of the bytes behind it once they are written.
  int64_t BeginSizeField();
  void EndSizeField(int64_t position);
  // Writes `value` at `position` and comes back.
  void PatchU32(int64_t position, uint32_t value);

  // With a length: a u32 count that includes the terminator, the text and its NUL; what is too long for a
  // count writes a count of 0. Without a length: the characters alone. The null PString has a count of 0.
  void WriteString(std::string_view text, bool withLength);
  void WritePString(Nox::PString text, bool withLength);
  // Read what was written with a length; the count may leave out the terminator. Text ends at its first NUL.
  void ReadString(std::string& text);
  void ReadPString(Nox::PString& text);

 protected:
  static constexpr size_t kBufferSize = 4096;
  // Bytes in front of the read position that a refill keeps, for small steps back.
  static constexpr size_t kLookBehind = 16;

  void DropReadAhead() {
    bufferedBytes = 0;
    bufferPos = 0;
  }

  void MarkWriteFailed() { writeFailed_ = true; }

  uint32_t bufferedBytes = 0;  // read ahead and not yet consumed
  int32_t bufferPos = 0;       // index of the next byte to consume
  std::array<uint8_t, kBufferSize> buffer;

 private:
  void Take(uint8_t* data, size_t count) {
    if (count == 0) return;
    std::memcpy(data, buffer.data() + bufferPos, count);
    bufferPos += static_cast<int32_t>(count);
    bufferedBytes -= static_cast<uint32_t>(count);
  }
  size_t Refill(uint8_t* data, size_t count);
  bool MoveInside(int64_t delta);
  bool writeFailed_ = false;
};

inline uint8_t TStream::ReadByte() {
  uint8_t value = 0;
  Read(&value, 1);
  return value;
}

inline uint16_t TStream::ReadU16() {
  uint8_t bytes[2] = {};
  Read(bytes, sizeof bytes);
  return static_cast<uint16_t>(bytes[0] | bytes[1] << 8);
}

inline uint32_t TStream::ReadU32() {
  uint8_t bytes[4] = {};
  Read(bytes, sizeof bytes);
  return static_cast<uint32_t>(bytes[0]) | static_cast<uint32_t>(bytes[1]) << 8 |
         static_cast<uint32_t>(bytes[2]) << 16 | static_cast<uint32_t>(bytes[3]) << 24;
}

}  // namespace morvex
