#include "validation/qel/texture_files.h"

#include <bit>
#include <optional>
#include <string>

#include "engine/bitmap.h"
#include "engine/file.h"
#include "engine/find.h"
#include "engine/path.h"
#include "engine/text.h"
#include "engine/texture_text.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

constexpr std::string_view kDescriptionExtension = "texture.txt";

bool HasGoodSides(const Nox::Bitmap& image) {
  return std::has_single_bit(image.Width()) && std::has_single_bit(image.Height());
}

// One description and its images.
class TextureCheck {
 public:
  explicit TextureCheck(const Nox::Location& description)
      : folder_{description.pack, Nox::Path::DelName(description.path, false)}, description_(description) {}

  bool Run() {
    const Nox::Location compiled = {description_.pack, Nox::Path::SetExt(description_.path, "")};
    if (Nox::File::Exists(compiled)) Fail(kEntryTextureTwice, description_.path);
    const Nox::TextureText text = Nox::ReadTextureText(description_);
    Size primary, alpha;
    if (!text.primary.empty() && !CheckImage(text.primary, primary)) return false;
    if (!text.alpha.empty() && !CheckImage(text.alpha, alpha)) return false;
    if (primary && alpha && *primary != *alpha) Fail(kEntryImageSizesDiffer, description_.path);
    return isGood_;
  }

 private:
  struct Sides {
    uint32_t width;
    uint32_t height;
    bool operator==(const Sides&) const = default;
  };
  using Size = std::optional<Sides>;  // empty: there is no such image

  // False if the image can't be read, which ends the check of this description.
  bool CheckImage(std::string_view name, Size& size) {
    const std::string path = Nox::Path::AddPath(folder_.path, Nox::ToLower(name));
    if (!Nox::File::Exists({folder_.pack, path})) {
      Fail(kEntryImageMissing, path);
      return true;
    }
    const auto image = Nox::Bitmap::Load({folder_.pack, path});
    if (!image) {
      Fail(kEntryImageUnreadable, path);
      return false;
    }
    if (!HasGoodSides(*image)) Fail(kEntryImageNotPowerOfTwo, path);
    size = Sides{image->Width(), image->Height()};
    return true;
  }

  void Fail(MessageEntry entry, const std::string& path) {
    ReportError(entry, path);
    isGood_ = false;
  }

  const Nox::Location folder_;
  const Nox::Location description_;
  bool isGood_ = true;
};

}  // namespace

// Links to folders aren't followed, and no path is longer than the system takes, so the depth has an end.
bool CheckTextureFiles(const Nox::Location& folder) {
  const auto entries = Nox::ListFolder(folder);
  if (!entries) return true;
  bool isGood = true;
  for (const Nox::DirEntry& entry : *entries) {
    const Nox::Location place = {folder.pack, Nox::Path::AddPath(folder.path, entry.name)};
    if (entry.isDir) {
      if (!entry.isLink) isGood &= CheckTextureFiles(place);
    } else if (Nox::Path::IsExt(entry.name, kDescriptionExtension)) {
      isGood &= TextureCheck(place).Run();
    }
  }
  return isGood;
}

}  // namespace QELLib
