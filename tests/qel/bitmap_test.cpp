#include "engine/bitmap.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "tests/qel/image_files.h"

namespace Nox {
namespace {

std::optional<Bitmap> Decode(std::string_view bytes, ImageFormat format) {
  return Bitmap::Decode({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, format);
}

TEST(Bitmap, ReadsItsThreeFormatsAndNothingThatIsCutShort) {
  // Last the number of bytes at the end that no pixel needs.
  const std::tuple<std::string, ImageFormat, std::uint32_t, std::uint32_t, std::size_t> rows[] = {
      {TgaImage(4, 8), ImageFormat::kTga, 4, 3, 0},
      {BmpImage(16, 8), ImageFormat::kBmp, 16, 3, 0},
      {JpegImage(), ImageFormat::kJpeg, 8, 1, 2}};
  for (const auto& [bytes, format, width, channels, spare] : rows) {
    const auto image = Decode(bytes, format);
    ASSERT_TRUE(image) << width;
    EXPECT_EQ(image->Width(), width);
    EXPECT_EQ(image->Height(), 8u);
    EXPECT_EQ(image->Channels(), channels);
    EXPECT_EQ(image->Pixels().size(), width * 8 * channels);
    for (std::size_t size = 0; size + spare < bytes.size(); ++size) {
      const std::string cut(bytes, 0, size);  // a buffer of its own, so that a read past its end shows
      EXPECT_FALSE(Decode(cut, format)) << width << " cut at " << size;
    }
  }
}

TEST(Bitmap, RefusesAbsurdSizes) {
  EXPECT_TRUE(Bitmap::SizeIsAllowed(16384, 3906));
  EXPECT_FALSE(Bitmap::SizeIsAllowed(16384, 3907));
  EXPECT_FALSE(Bitmap::SizeIsAllowed(16385, 1));
  EXPECT_FALSE(Bitmap::SizeIsAllowed(0, 1));
  for (const int at : {12, 14}) {
    std::string tga = TgaImage(4, 4);
    tga.replace(static_cast<std::size_t>(at), 2, "\xFF\xFF");
    EXPECT_FALSE(Decode(tga, ImageFormat::kTga));
  }
  std::string bmp = BmpImage(4, 4);
  bmp.replace(18, 4, "\xFF\xFF\xFF\x7F");
  EXPECT_FALSE(Decode(bmp, ImageFormat::kBmp));
}

}  // namespace
}  // namespace Nox
