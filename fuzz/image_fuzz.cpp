#include <cstdint>
#include <cstdlib>

#include "engine/bitmap.h"

// The first byte chooses the format, the rest is the image: none, or one whose pixels are all there.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  constexpr Nox::ImageFormat kFormats[] = {Nox::ImageFormat::kBmp, Nox::ImageFormat::kTga,
                                           Nox::ImageFormat::kJpeg};
  const auto image = Nox::Bitmap::Decode({data + 1, size - 1}, kFormats[data[0] % 3]);
  if (!image) return 0;
  if (!Nox::Bitmap::SizeIsAllowed(image->Width(), image->Height())) std::abort();
  uint64_t sum = 0;
  for (const uint8_t byte : image->Pixels())
    sum += byte;
  const uint64_t count = uint64_t{image->Width()} * image->Height() * image->Channels();
  if (image->Pixels().size() != count || sum > 255 * count) std::abort();
  return 0;
}
