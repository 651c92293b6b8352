#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "engine/bitmap.h"

// The libraries that decode images, one to a file.
namespace Nox {

std::optional<Bitmap> DecodeJpeg(std::span<const std::uint8_t> bytes);
// bmp and tga.
std::optional<Bitmap> DecodePlainImage(std::span<const std::uint8_t> bytes);

}  // namespace Nox
