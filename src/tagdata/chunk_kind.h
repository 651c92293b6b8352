#pragma once

#include <cstdint>

namespace morvex {

// What a tag holds. The numbers are those of `ACSChunk::GetKind`; the numbers of the binary file differ and
// stand in chunk_format.h.
enum class ChunkKind : uint8_t {
  kNull = 0,       // a name without a value
  kContainer = 1,  // children, no data
  kBinary = 2,     // raw bytes
  kFloat = 3,      // one or more 32-bit floats
  kString = 4,     // UTF-8 text and its NUL; the empty string has no data at all
  kText = 5,       // a second text kind, accepted everywhere and made nowhere
  kInt = 6,        // one or more signed 32-bit integers
  kKuid = 7,       // 8 bytes, the chunk data form of a KUID
};

// Soups nested deeper than this are damage: a binary file is refused, a text is read over and dropped, and
// no writer goes below. Far beyond real content, and small enough for a fixed stack.
inline constexpr int kMaxSoupDepth = 256;

}  // namespace morvex
