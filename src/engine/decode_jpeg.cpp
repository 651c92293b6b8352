#include "engine/image_decoders.h"
#include "engine/jpeg_guard.h"

#include <jerror.h>

#include <utility>
#include <vector>

namespace Nox {
namespace {

// A progressive image may repeat the work for its whole size in each of its scans, which cost only a few
// bytes; real images have about ten.
constexpr int kMaxScans = 100;
// The library can leave out seven of eight pixels in each direction.
constexpr unsigned kSmallestPart = 8;

class JpegReader {
 public:
  JpegReader() {
    info_.err = &guard_;
    guard_.emit_message = [](j_common_ptr info, int level) {
      if (level < 0 && info->err->msg_code == JWRN_JPEG_EOF) Of(info).isCutShort_ = true;
    };
    progress_.progress_monitor = [](j_common_ptr info) {
      if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMaxScans) Of(info).guard_.GiveUp();
    };
    info_.client_data = this;
    isMade_ = guard_.Run([this] { jpeg_create_decompress(&info_); });
    info_.progress = &progress_;
  }
  ~JpegReader() { jpeg_destroy_decompress(&info_); }
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;

  bool ReadHeader(std::span<const std::uint8_t> bytes) {
    return isMade_ && guard_.Run([&] {
      jpeg_mem_src(&info_, bytes.data(), static_cast<unsigned long>(bytes.size()));
      jpeg_read_header(&info_, TRUE);
      info_.out_color_space = info_.num_components == 1 ? JCS_GRAYSCALE : JCS_RGB;
      jpeg_calc_output_dimensions(&info_);
    });
  }
  bool Reduce(std::uint32_t leastWidth, std::uint32_t leastHeight) {
    unsigned part = 1;
    while (part < kSmallestPart && info_.image_width / (part * 2) >= leastWidth &&
           info_.image_height / (part * 2) >= leastHeight)
      part *= 2;
    return guard_.Run([&] {
      info_.scale_num = 1;
      info_.scale_denom = part;
      jpeg_calc_output_dimensions(&info_);
    });
  }
  std::uint32_t Width() const { return info_.output_width; }
  std::uint32_t Height() const { return info_.output_height; }
  std::uint32_t Channels() const { return static_cast<std::uint32_t>(info_.output_components); }

  // `pixels` has room for the whole image.
  bool ReadPixels(std::uint8_t* pixels) {
    const std::size_t stride = std::size_t{Width()} * Channels();
    return guard_.Run([&] {
      jpeg_start_decompress(&info_);
      while (info_.output_scanline < info_.output_height) {
        JSAMPROW row = pixels + stride * info_.output_scanline;
        jpeg_read_scanlines(&info_, &row, 1);
      }
      jpeg_finish_decompress(&info_);
    }) && !isCutShort_;
  }

 private:
  static JpegReader& Of(j_common_ptr info) { return *static_cast<JpegReader*>(info->client_data); }

  jpeg_decompress_struct info_{};
  JpegGuard guard_;
  jpeg_progress_mgr progress_{};
  bool isMade_ = false;
  bool isCutShort_ = false;
};

}  // namespace

std::optional<Bitmap> DecodeJpeg(std::span<const std::uint8_t> bytes, std::uint32_t leastWidth,
                                 std::uint32_t leastHeight) {
  JpegReader reader;
  if (!reader.ReadHeader(bytes) || !Bitmap::SizeIsAllowed(reader.Width(), reader.Height()))
    return std::nullopt;
  const bool mayBeReduced = leastWidth != 0 && leastHeight != 0;
  if (mayBeReduced && !reader.Reduce(leastWidth, leastHeight)) return std::nullopt;
  std::vector<std::uint8_t> pixels(std::size_t{reader.Width()} * reader.Height() * reader.Channels());
  if (!reader.ReadPixels(pixels.data())) return std::nullopt;
  return Bitmap(reader.Width(), reader.Height(), reader.Channels(), OwnedBytes::Adopt(std::move(pixels)));
}

}  // namespace Nox
