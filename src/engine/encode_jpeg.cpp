#include "engine/encode_jpeg.h"

#include <cstdlib>
#include <span>

#include "engine/bitmap.h"
#include "engine/jpeg_guard.h"

namespace Nox {
namespace {

class JpegWriter {
 public:
  JpegWriter() {
    info_.err = &guard_;
    isMade_ = guard_.Run([this] { jpeg_create_compress(&info_); });
  }
  ~JpegWriter() {
    jpeg_destroy_compress(&info_);
    std::free(file_);
  }
  JpegWriter(const JpegWriter&) = delete;
  JpegWriter& operator=(const JpegWriter&) = delete;

  // `row` has room for one row of `channels` bytes a pixel, and `fill` puts the rows there one after the other.
  template <typename Fill>
  bool Write(const Bitmap& image, int channels, int quality, std::span<std::uint8_t> row, Fill fill) {
    return isMade_ && guard_.Run([&] {
      jpeg_mem_dest(&info_, &file_, &size_);
      info_.image_width = image.Width();
      info_.image_height = image.Height();
      info_.input_components = channels;
      info_.in_color_space = channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
      jpeg_set_defaults(&info_);
      info_.optimize_coding = TRUE;
      jpeg_set_quality(&info_, quality, TRUE);
      jpeg_start_compress(&info_, TRUE);
      while (info_.next_scanline < info_.image_height) {
        fill(info_.next_scanline);
        JSAMPROW pointer = row.data();
        jpeg_write_scanlines(&info_, &pointer, 1);
      }
      jpeg_finish_compress(&info_);
    });
  }

  std::span<const std::uint8_t> File() const { return {file_, size_}; }

 private:
  jpeg_compress_struct info_{};
  JpegGuard guard_;
  unsigned char* file_ = nullptr;
  unsigned long size_ = 0;
  bool isMade_ = false;
};

}  // namespace

std::optional<std::vector<std::uint8_t>> EncodeJpeg(const Bitmap& image, int quality) {
  const std::size_t from = image.Channels();
  const std::size_t to = from < 3 ? 1 : 3;
  std::vector<std::uint8_t> row(image.Width() * to);
  JpegWriter writer;
  const bool isWritten = writer.Write(image, static_cast<int>(to), quality, row, [&](std::uint32_t y) {
    const std::span<const std::uint8_t> source =
        image.Pixels().subspan(std::size_t{y} * image.Width() * from);
    for (std::size_t x = 0; x < image.Width(); ++x) {
      for (std::size_t channel = 0; channel < to; ++channel)
        row[x * to + channel] = source[x * from + channel];
    }
  });
  if (!isWritten) return std::nullopt;
  const std::span<const std::uint8_t> file = writer.File();
  return std::vector<std::uint8_t>(file.begin(), file.end());
}

}  // namespace Nox
