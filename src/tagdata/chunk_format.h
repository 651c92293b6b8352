#pragma once

#include <cstdint>

// The numbers of the chunk file ("chump"). All integers are little-endian.
//
//   file header: u32 signature "ACS$", u32 version, u32 reserved (0), u32 bytes of body
//   body:        the chunks of the root soup, one behind the other, without alignment
//   chunk:       u32 size of what follows, u8 bytes of the name with its NUL (0: no name), the name,
//                u8 type, the data: size - name bytes - 2
//
// The data of a container is again a sequence of chunks. 1 to 5 bytes left at the end of a sequence are
// passed over.
namespace morvex {

inline constexpr uint32_t kChumpSignature = 0x24534341;  // "ACS$"
inline constexpr uint32_t kChumpVersion = 1;             // as written; 0 is read too
inline constexpr uint32_t kChumpAnsiVersion = 0;         // its strings are in the system code page
inline constexpr uint32_t kChumpHeaderSize = 16;
inline constexpr uint32_t kMaxChumpBody = 0x7FFFFFFF;

inline constexpr uint32_t kMinChunkBytes = 6;   // size field, name length, type
inline constexpr uint32_t kMaxChunkName = 254;  // without its NUL; a longer one can't be written

enum class ChunkType : uint8_t {
  kContainer = 0,
  kInt = 1,
  kFloat = 2,
  kString = 3,
  kBinary = 4,
  kNull = 5,
  kAligned = 12,  // binary behind padding up to a multiple of 16 from the start of the body; only read
  kKuid = 13,
};

}  // namespace morvex
