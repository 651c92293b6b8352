#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace Nox {

class Bitmap;

// The image as a JPEG file, in grey or colour; what it has of alpha is left out. `quality` goes from 1 to 100. None
// if the library can't, for lack of memory.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> EncodeJpeg(const Bitmap& image, int quality);

}  // namespace Nox
