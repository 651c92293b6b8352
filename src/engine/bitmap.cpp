#include "engine/bitmap.h"

#include <string>
#include <utility>

#include "engine/image_decoders.h"
#include "engine/path.h"
#include "engine/read_file.h"
#include "engine/text.h"
#include "engine/texture_text.h"

namespace Nox {
namespace {

// More than an allowed image takes in any of the formats.
constexpr std::size_t kMaxFile = std::size_t{512} << 20;

std::optional<ImageFormat> FormatOf(std::string_view path) {
  if (Path::IsExt(path, "bmp")) return ImageFormat::kBmp;
  if (Path::IsExt(path, "tga")) return ImageFormat::kTga;
  if (Path::IsExt(path, "jpg")) return ImageFormat::kJpeg;
  return std::nullopt;
}

// The image that a description names; empty if it names none.
std::string ImageOfTexture(LocationView texture) {
  const std::string description = std::string(texture.path) + ".txt";
  const TextureText text = ReadTextureText({texture.pack, description});
  if (text.primary.empty()) return {};
  return Path::AddPath(Path::DelName(texture.path, false), ToLower(text.primary));
}

struct ImageFile {
  ImageFormat format;
  OwnedBytes bytes;
};

std::optional<ImageFile> ReadImage(LocationView file) {
  std::string image(file.path);
  if (Path::IsExt(image, "texture")) image = ImageOfTexture(file);
  const std::optional<ImageFormat> format = FormatOf(image);
  if (!format) return std::nullopt;
  auto bytes = ReadWholeFile({file.pack, image}, kMaxFile);
  if (!bytes) return std::nullopt;
  return ImageFile{*format, std::move(*bytes)};
}

}  // namespace

std::optional<Bitmap> Bitmap::Load(LocationView file) {
  const std::optional<ImageFile> image = ReadImage(file);
  return image ? Decode(image->bytes, image->format) : std::nullopt;
}

std::optional<Bitmap> Bitmap::LoadReduced(LocationView file, std::uint32_t leastWidth,
                                          std::uint32_t leastHeight) {
  const std::optional<ImageFile> image = ReadImage(file);
  if (!image) return std::nullopt;
  return image->format == ImageFormat::kJpeg ? DecodeJpeg(image->bytes, leastWidth, leastHeight)
                                             : Decode(image->bytes, image->format);
}

std::optional<Bitmap> Bitmap::Decode(std::span<const std::uint8_t> bytes, ImageFormat format) {
  return format == ImageFormat::kJpeg ? DecodeJpeg(bytes) : DecodePlainImage(bytes);
}

}  // namespace Nox
