#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>

#include "engine/location.h"
#include "engine/owned_bytes.h"

namespace Nox {

enum class ImageFormat { kBmp, kTga, kJpeg };

// An image in memory: rows from the top, pixels from the left, 8 bits a channel; grey, grey and alpha, RGB
// or RGBA as the file has it.
class Bitmap {
 public:
  // Larger images are refused before memory is taken for them.
  static constexpr std::uint32_t kMaxSide = 16384;
  static constexpr std::uint64_t kMaxPixels = 64'000'000;
  static constexpr bool SizeIsAllowed(std::uint64_t width, std::uint64_t height) {
    return width >= 1 && height >= 1 && width <= kMaxSide && height <= kMaxSide &&
           width * height <= kMaxPixels;
  }

  // `pixels` holds width * height * channels bytes.
  Bitmap(std::uint32_t width, std::uint32_t height, std::uint32_t channels, OwnedBytes pixels)
      : width_(width), height_(height), channels_(channels), pixels_(std::move(pixels)) {}

  // By extension: bmp, tga or jpg; for a "texture" the image that the ".texture.txt" beside it names. None if
  // there is no such file, if it is another kind of file, too large or cut short.
  [[nodiscard]] static std::optional<Bitmap> Load(LocationView file);
  // The same for a picture that will be made smaller: where the format allows it, some smaller form that is at least
  // as large as said, for less work.
  [[nodiscard]] static std::optional<Bitmap> LoadReduced(LocationView file, std::uint32_t leastWidth,
                                                         std::uint32_t leastHeight);
  [[nodiscard]] static std::optional<Bitmap> Decode(std::span<const std::uint8_t> bytes, ImageFormat format);

  std::uint32_t Width() const { return width_; }
  std::uint32_t Height() const { return height_; }
  std::uint32_t Channels() const { return channels_; }
  std::span<const std::uint8_t> Pixels() const { return pixels_; }

 private:
  std::uint32_t width_;
  std::uint32_t height_;
  std::uint32_t channels_;
  OwnedBytes pixels_;
};

}  // namespace Nox
