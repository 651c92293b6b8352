#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/bitmap.h"
#include "engine/location.h"

namespace morvex::host {

// The image made smaller, its shape kept, so that it fits into a box; one that fits is left as it is. Each new pixel
// is the mean of those it covers.
Nox::Bitmap Shrink(const Nox::Bitmap& image, uint32_t maxWidth, uint32_t maxHeight);

// The picture of an asset as a JPEG file that fits into a box: "thumbnail.jpg" in its folder, else the image that its
// configuration names for the purpose. None if it has no picture that can be read. The pack must be mounted. Any
// thread.
std::optional<std::vector<uint8_t>> MakeThumbnail(const Nox::Location& folder, uint32_t maxWidth,
                                                  uint32_t maxHeight);

}  // namespace morvex::host
