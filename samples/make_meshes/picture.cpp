#include "samples/make_meshes/picture.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace samples {
namespace {

constexpr int kSide = 64;

using Pixel = std::array<int, 3>;  // blue, green, red, as the file has them

// Uncompressed, 24 bits, rows from the top.
template <typename Paint>
Bytes Tga(Paint paint) {
  Bytes bytes = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSide, 0, kSide, 0, 24, 0x20};
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      for (const int channel : paint(x, y))
        bytes.push_back(static_cast<std::uint8_t>(std::clamp(channel, 0, 255)));
    }
  }
  return bytes;
}

// The same unevenness for the same place, 0 to below `range`.
int Grain(int x, int y, int range) {
  const auto mixed = static_cast<std::uint32_t>(x) * 2654435761U ^ static_cast<std::uint32_t>(y) * 40503U;
  return static_cast<int>((mixed >> 13) % static_cast<std::uint32_t>(range));
}

Pixel Shaded(Pixel colour, int difference) {
  for (int& channel : colour)
    channel += difference;
  return colour;
}

}  // namespace

Bytes Planks() {
  return Tga([](int x, int y) {
    const bool isGap = x % 16 == 0;
    const int streak = Grain(x, y / 12, 24) - 12 + Grain(x / 16, 7, 20) - 10;
    return Shaded({52, 84, 122}, isGap ? -45 : streak);
  });
}

Bytes Masonry() {
  return Tga([](int x, int y) {
    const int row = y / 16, column = (x + row % 2 * 16) % kSide;
    const bool isJoint = y % 16 < 2 || column % 32 < 2;
    return Shaded({118, 122, 126}, isJoint ? -40 : Grain(column / 32, row, 30) - 15 + Grain(x, y, 12));
  });
}

Bytes Plaster() {
  return Tga([](int x, int y) { return Shaded({214, 224, 228}, Grain(x, y, 16) - 8); });
}

Bytes Rivets() {
  return Tga([](int x, int y) {
    const int dx = x % 8 - 4, dy = y % 32 - 4;
    const bool isHead = dx * dx + dy * dy < 9;
    return isHead ? Pixel{220, 128 - 24 * dy, 128 + 24 * dx} : Pixel{255, 128, 128};
  });
}

Bytes Panes() {
  return Tga([](int x, int y) {
    const bool isBar =
        x < 4 || y < 4 || x >= kSide - 4 || y >= kSide - 4 || x / 2 == kSide / 4 || y / 2 == kSide / 4;
    return isBar ? Pixel{30, 42, 60} : Shaded({150, 220, 250}, -std::abs(x - kSide / 2));
  });
}

}  // namespace samples
