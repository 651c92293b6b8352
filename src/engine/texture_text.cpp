#include "engine/texture_text.h"

#include <algorithm>
#include <string_view>

#include "engine/file.h"

namespace Nox {
namespace {

constexpr std::size_t kMaxLine = 512;
constexpr std::string_view kPrimary = "Primary";
constexpr std::string_view kAlpha = "Alpha";

// Any one character separates the key from the name.
void TakeName(std::string_view line, std::string_view key, std::string& name) {
  if (!line.starts_with(key)) return;
  line.remove_prefix(std::min(key.size() + 1, line.size()));
  name = line.substr(0, line.find_first_of("\r\n"));
}

}  // namespace

TextureText ReadTextureText(LocationView location) {
  TextureText text;
  File file;
  if (!file.Open(location, OpenMode::kRead)) return text;
  char buffer[kMaxLine + 1];
  while (const std::size_t size = file.ReadLine(buffer, sizeof buffer)) {
    const std::string_view line(buffer, size);
    TakeName(line, kPrimary, text.primary);
    TakeName(line, kAlpha, text.alpha);
  }
  return text;
}

}  // namespace Nox
