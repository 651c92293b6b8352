#include "engine/texture_text.h"

#include <algorithm>
#include <string_view>

#include "engine/file.h"

namespace Nox {
namespace {

constexpr std::size_t kMaxLine = 512;
constexpr std::string_view kPrimary = "Primary";
constexpr std::string_view kAlpha = "Alpha";

// Any one character separates the key from the name. False if the line is for another key.
bool TakeName(std::string_view line, std::string_view key, std::string& name) {
  if (!line.starts_with(key)) return false;
  line.remove_prefix(std::min(key.size() + 1, line.size()));
  name = line.substr(0, line.find_first_of("\r\n"));
  return true;
}

// Hands the lines of a file to `take` until that answers true, which is passed on.
template <typename Take>
bool AnyLine(LocationView location, Take take) {
  File file;
  if (!file.Open(location, OpenMode::kRead)) return false;
  char buffer[kMaxLine + 1];
  while (const std::size_t size = file.ReadLine(buffer, sizeof buffer)) {
    if (take(std::string_view(buffer, size))) return true;
  }
  return false;
}

}  // namespace

TextureText ReadTextureText(LocationView location) {
  TextureText text;
  AnyLine(location, [&](std::string_view line) {
    TakeName(line, kPrimary, text.primary);
    TakeName(line, kAlpha, text.alpha);
    return false;
  });
  return text;
}

std::optional<std::string> ReadPrimaryImage(LocationView location) {
  std::string name;
  const bool isNamed =
      AnyLine(location, [&](std::string_view line) { return TakeName(line, kPrimary, name); });
  return isNamed ? std::optional(name) : std::nullopt;
}

}  // namespace Nox
