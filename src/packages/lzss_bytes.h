#pragma once

#include <cstddef>
#include <cstdint>

namespace Nox {

// Little-endian words in memory; compilers make one move of each. The caller vouches for the bounds.

inline std::uint32_t LzssLoad16(const std::uint8_t* p) {
  return p[0] | std::uint32_t{p[1]} << 8;
}
inline std::uint32_t LzssLoad32(const std::uint8_t* p) {
  return LzssLoad16(p) | LzssLoad16(p + 2) << 16;
}
inline std::uint64_t LzssLoad64(const std::uint8_t* p) {
  return std::uint64_t{p[0]} | std::uint64_t{p[1]} << 8 | std::uint64_t{p[2]} << 16 |
         std::uint64_t{p[3]} << 24 | std::uint64_t{p[4]} << 32 | std::uint64_t{p[5]} << 40 |
         std::uint64_t{p[6]} << 48 | std::uint64_t{p[7]} << 56;
}

inline void LzssStore32(std::uint8_t* p, std::uint32_t value) {
  p[0] = static_cast<std::uint8_t>(value);
  p[1] = static_cast<std::uint8_t>(value >> 8);
  p[2] = static_cast<std::uint8_t>(value >> 16);
  p[3] = static_cast<std::uint8_t>(value >> 24);
}
inline void LzssStore64(std::uint8_t* p, std::uint64_t value) {
  LzssStore32(p, static_cast<std::uint32_t>(value));
  LzssStore32(p + 4, static_cast<std::uint32_t>(value >> 32));
}

}  // namespace Nox
