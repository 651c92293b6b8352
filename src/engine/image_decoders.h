#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "engine/bitmap.h"

// The libraries that decode images, one to a file.
namespace Nox {

// In a half, a quarter or an eighth of its size where that still covers the least size asked for: the work goes down
// with the size. A least size of 0 gives it whole.
std::optional<Bitmap> DecodeJpeg(std::span<const std::uint8_t> bytes, std::uint32_t leastWidth = 0,
                                 std::uint32_t leastHeight = 0);
// bmp and tga.
std::optional<Bitmap> DecodePlainImage(std::span<const std::uint8_t> bytes);

}  // namespace Nox
