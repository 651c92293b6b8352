#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace morvex {

// A region's two letters as one number: blanks in the two high bytes, then the letters.
constexpr uint32_t RegionCode(char first, char second) {
  return 0x20200000u | static_cast<uint32_t>(static_cast<uint8_t>(first)) << 8 | static_cast<uint8_t>(second);
}

struct RegionRow {
  uint32_t code;
  std::string_view name;
};

// Region names, scanned from the top. A code may have several names.
extern const std::span<const RegionRow> RegionTable;

}  // namespace morvex
