#include "host/thumbnail.h"

#include <algorithm>
#include <string>
#include <utility>

#include "database/catalogue/config_reader.h"
#include "engine/encode_jpeg.h"
#include "engine/file.h"
#include "engine/path.h"
#include "tagdata/tag_container.h"

namespace morvex::host {

namespace {

constexpr std::string_view kUsualName = "thumbnail.jpg";
constexpr int kQuality = 62;
// A thumbnail of more pixels is somebody's mistake, and not worth the time.
constexpr uint64_t kMaxFile = uint64_t{8} << 20;

const Nox::PString kThumbnails("thumbnails");
const Nox::PString kImage("image");

// The parts of a side of `from` pixels that each of `to` pixels covers.
struct Cover {
  uint32_t first;
  uint32_t end;
};
Cover CoverOf(uint32_t at, uint32_t from, uint32_t to) {
  const auto first = static_cast<uint32_t>(uint64_t{at} * from / to);
  const auto end = static_cast<uint32_t>((uint64_t{at} + 1) * from / to);
  return {first, std::max(end, first + 1)};
}

// Adds the rows of an image up, value by value.
void AddRows(const Nox::Bitmap& image, Cover rows, std::vector<uint32_t>& sums) {
  std::fill(sums.begin(), sums.end(), 0);
  for (uint32_t y = rows.first; y < rows.end; ++y) {
    const std::span<const uint8_t> row = image.Pixels().subspan(y * sums.size(), sums.size());
    for (size_t i = 0; i < row.size(); ++i)
      sums[i] += row[i];
  }
}

// Appends the means of one row of covers.
void AppendMeans(const std::vector<uint32_t>& sums, uint32_t rowCount, uint32_t from, uint32_t to,
                 uint32_t channels, std::vector<uint8_t>& pixels) {
  for (uint32_t x = 0; x < to; ++x) {
    const Cover columns = CoverOf(x, from, to);
    const double share = 1.0 / (static_cast<double>(columns.end - columns.first) * rowCount);
    for (uint32_t channel = 0; channel < channels; ++channel) {
      int64_t sum = 0;
      for (size_t column = columns.first; column < columns.end; ++column)
        sum += sums[column * channels + channel];
      pixels.push_back(static_cast<uint8_t>(static_cast<double>(sum) * share + 0.5));
    }
  }
}

// The image that the configuration names; empty if it names none that an asset may hold.
std::string NamedImage(const Nox::Location& folder) {
  const TagContainer thumbnails = ReadConfig(folder).GetContainer(kThumbnails);
  for (uint32_t i = 0; i < thumbnails.GetCount(); ++i) {
    const std::string name = thumbnails.GetContainerAt(i).GetText(kImage);
    const std::string path = Nox::Path::AddPath(folder.path, name);
    if (!name.empty() && Nox::Path::IsBelow(folder.path, path)) return path;
  }
  return {};
}

std::optional<Nox::Bitmap> LoadPicture(const Nox::Location& folder, uint32_t leastWidth,
                                       uint32_t leastHeight) {
  std::string path = Nox::Path::AddPath(folder.path, kUsualName);
  if (!Nox::File::Exists({folder.pack, path})) path = NamedImage(folder);
  if (path.empty() || Nox::File::SizeOf({folder.pack, path}).value_or(kMaxFile) >= kMaxFile)
    return std::nullopt;
  return Nox::Bitmap::LoadReduced({folder.pack, path}, leastWidth, leastHeight);
}

}  // namespace

Nox::Bitmap Shrink(const Nox::Bitmap& image, uint32_t maxWidth, uint32_t maxHeight) {
  if (image.Width() <= maxWidth && image.Height() <= maxHeight) return image;
  const double factor = std::min(static_cast<double>(maxWidth) / image.Width(),
                                 static_cast<double>(maxHeight) / image.Height());
  const auto scaled = [factor](uint32_t side) {
    return std::max(1U, static_cast<uint32_t>(side * factor + 0.5));
  };
  const uint32_t width = std::min(scaled(image.Width()), maxWidth);
  const uint32_t height = std::min(scaled(image.Height()), maxHeight);
  std::vector<uint8_t> pixels;
  pixels.reserve(size_t{width} * height * image.Channels());
  std::vector<uint32_t> sums(size_t{image.Width()} * image.Channels());
  for (uint32_t y = 0; y < height; ++y) {
    const Cover rows = CoverOf(y, image.Height(), height);
    AddRows(image, rows, sums);
    AppendMeans(sums, rows.end - rows.first, image.Width(), width, image.Channels(), pixels);
  }
  return Nox::Bitmap(width, height, image.Channels(), Nox::OwnedBytes::Adopt(std::move(pixels)));
}

std::optional<std::vector<uint8_t>> MakeThumbnail(const Nox::Location& folder, uint32_t maxWidth,
                                                  uint32_t maxHeight) {
  const std::optional<Nox::Bitmap> picture = LoadPicture(folder, maxWidth, maxHeight);
  if (!picture) return std::nullopt;
  return Nox::EncodeJpeg(Shrink(*picture, maxWidth, maxHeight), kQuality);
}

}  // namespace morvex::host
