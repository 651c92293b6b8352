#include <algorithm>
#include <cstring>
#include <memory>

#include "engine/image_decoders.h"

// The decoder is one header that is compiled into this file, for these two formats and nothing else. Its code
// keeps to warnings of its own.
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_BMP
#define STBI_ONLY_TGA
#define STBI_NO_STDIO
#define STBI_NO_FAILURE_STRINGS
#define STBI_NO_HDR
#define STBI_NO_LINEAR
#define STBI_MAX_DIMENSIONS 16384
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace Nox {
namespace {

static_assert(STBI_MAX_DIMENSIONS == Bitmap::kMaxSide);

// Hands the bytes out. The decoder takes what is missing at the end for zeros, so that is noted here.
class ImageBytes {
 public:
  explicit ImageBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool WentPastEnd() const { return wentPastEnd_; }
  void Rewind() { *this = ImageBytes(bytes_); }

  static constexpr stbi_io_callbacks Callbacks() {
    return {[](void* self, char* data, int size) { return static_cast<ImageBytes*>(self)->Read(data, size); },
            [](void* self, int count) { static_cast<ImageBytes*>(self)->Skip(count); },
            [](void* self) { return static_cast<ImageBytes*>(self)->AtEnd() ? 1 : 0; }};
  }

 private:
  // The decoder's own buffer, which it fills ahead as far as there are bytes.
  static constexpr int kReadAhead = 128;

  bool AtEnd() const { return position_ >= bytes_.size(); }

  int Read(char* data, int size) {
    const std::size_t left = bytes_.size() - position_;
    const std::size_t count = std::min(left, static_cast<std::size_t>(std::max(size, 0)));
    if (count == 0 || (count < static_cast<std::size_t>(size) && size != kReadAhead)) wentPastEnd_ = true;
    if (count != 0) std::memcpy(data, bytes_.data() + position_, count);
    position_ += count;
    return static_cast<int>(count);
  }

  void Skip(int count) {
    const std::int64_t target = static_cast<std::int64_t>(position_) + count;
    if (target > static_cast<std::int64_t>(bytes_.size())) wentPastEnd_ = true;
    position_ = static_cast<std::size_t>(std::clamp<std::int64_t>(target, 0, std::ssize(bytes_)));
  }

  std::span<const std::uint8_t> bytes_;
  std::size_t position_ = 0;
  bool wentPastEnd_ = false;
};

}  // namespace

std::optional<Bitmap> DecodePlainImage(std::span<const std::uint8_t> bytes) {
  constexpr stbi_io_callbacks kCallbacks = ImageBytes::Callbacks();
  ImageBytes source(bytes);
  int width = 0, height = 0, channels = 0;
  if (stbi_info_from_callbacks(&kCallbacks, &source, &width, &height, &channels) == 0) return std::nullopt;
  if (!Bitmap::SizeIsAllowed(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height)))
    return std::nullopt;
  source.Rewind();
  const std::shared_ptr<stbi_uc> decoded(
      stbi_load_from_callbacks(&kCallbacks, &source, &width, &height, &channels, 0), &stbi_image_free);
  if (decoded == nullptr || source.WentPastEnd()) return std::nullopt;
  const std::size_t size =
      static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * static_cast<std::size_t>(channels);
  return Bitmap(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
                static_cast<std::uint32_t>(channels), OwnedBytes(decoded.get(), size, decoded));
}

}  // namespace Nox
