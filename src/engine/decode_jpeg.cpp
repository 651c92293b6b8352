#include <csetjmp>
#include <cstdio>  // jpeglib.h needs it in front

#include <jerror.h>
#include <jpeglib.h>

#include <utility>
#include <vector>

#include "engine/image_decoders.h"

namespace Nox {
namespace {

// A progressive image may repeat the work for its whole size in each of its scans, which cost only a few
// bytes; real images have about ten.
constexpr int kMaxScans = 100;

// The library reports a damaged file by a jump back to the caller, so what lies between holds no object with
// a destructor.
class JpegReader {
 public:
  JpegReader() {
    info_.err = jpeg_std_error(&errors_);
    errors_.error_exit = [](j_common_ptr info) { std::longjmp(Of(info).failed_, 1); };
    errors_.output_message = [](j_common_ptr) {};
    errors_.emit_message = [](j_common_ptr info, int level) {
      if (level < 0 && info->err->msg_code == JWRN_JPEG_EOF) Of(info).isCutShort_ = true;
    };
    progress_.progress_monitor = [](j_common_ptr info) {
      if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMaxScans)
        std::longjmp(Of(info).failed_, 1);
    };
    info_.client_data = this;
    isMade_ = Guarded([this] { jpeg_create_decompress(&info_); });
    info_.progress = &progress_;
  }
  ~JpegReader() { jpeg_destroy_decompress(&info_); }
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;

  bool ReadHeader(std::span<const std::uint8_t> bytes) {
    return isMade_ && Guarded([&] {
             jpeg_mem_src(&info_, bytes.data(), static_cast<unsigned long>(bytes.size()));
             jpeg_read_header(&info_, TRUE);
             info_.out_color_space = info_.num_components == 1 ? JCS_GRAYSCALE : JCS_RGB;
             jpeg_calc_output_dimensions(&info_);
           });
  }
  std::uint32_t Width() const { return info_.output_width; }
  std::uint32_t Height() const { return info_.output_height; }
  std::uint32_t Channels() const { return static_cast<std::uint32_t>(info_.output_components); }

  // `pixels` has room for the whole image.
  bool ReadPixels(std::uint8_t* pixels) {
    const std::size_t stride = std::size_t{Width()} * Channels();
    return Guarded([&] {
             jpeg_start_decompress(&info_);
             while (info_.output_scanline < info_.output_height) {
               JSAMPROW row = pixels + stride * info_.output_scanline;
               jpeg_read_scanlines(&info_, &row, 1);
             }
             jpeg_finish_decompress(&info_);
           }) &&
           !isCutShort_;
  }

 private:
  static JpegReader& Of(j_common_ptr info) { return *static_cast<JpegReader*>(info->client_data); }

  template <typename Work>
  bool Guarded(Work work) {
    if (setjmp(failed_) != 0) return false;
    work();
    return true;
  }

  jpeg_decompress_struct info_{};
  jpeg_error_mgr errors_{};
  jpeg_progress_mgr progress_{};
  std::jmp_buf failed_{};
  bool isMade_ = false;
  bool isCutShort_ = false;
};

}  // namespace

std::optional<Bitmap> DecodeJpeg(std::span<const std::uint8_t> bytes) {
  JpegReader reader;
  if (!reader.ReadHeader(bytes) || !Bitmap::SizeIsAllowed(reader.Width(), reader.Height()))
    return std::nullopt;
  std::vector<std::uint8_t> pixels(std::size_t{reader.Width()} * reader.Height() * reader.Channels());
  if (!reader.ReadPixels(pixels.data())) return std::nullopt;
  return Bitmap(reader.Width(), reader.Height(), reader.Channels(), OwnedBytes::Adopt(std::move(pixels)));
}

}  // namespace Nox
