#include "packages/file_rules.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/path.h"
#include "engine/text.h"

namespace morvex {
namespace {

constexpr std::array<std::string_view, 30> kExtensions = {
    "txt",  "bmp", "tga", "chump", "pm",  "im",      "kin", "wav", "jpg", "jpeg",
    "gnd",  "ref", "tso", "obs",   "trk", "texture", "bmk", "dat", "gs",  "gse",
    "html", "htm", "evt", "lm",    "mp3", "lst",     "pfx", "tfx", "avi", "wmv"};

constexpr std::array<std::string_view, 2> kIgnoredNames = {"thumbs.db", "pspbrwse.jbf"};
// Compared exactly: in capitals these endings are those of a file like any other.
constexpr std::array<std::string_view, 2> kIgnoredEndings = {".imw", ".gmw"};

constexpr std::array<bool, 256> MakeNameBytes() {
  std::array<bool, 256> allowed{};
  for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                       "-&,+'._$ ()~"))
    allowed[static_cast<uint8_t>(c)] = true;
  return allowed;
}
constexpr std::array<bool, 256> kNameBytes = MakeNameBytes();

}  // namespace

bool IsValidName(std::string_view name) {
  if (name.empty()) return false;
  if (name.front() == ' ' || name.front() == '.' || name.front() == '~') return false;
  if (name.back() == ' ') return false;
  return std::ranges::all_of(name, [](char c) { return kNameBytes[static_cast<uint8_t>(c)]; });
}

bool IsIgnoredFile(std::string_view name) {
  return std::ranges::any_of(kIgnoredNames, [&](auto known) { return Nox::EqualsIgnoreCase(name, known); }) ||
         std::ranges::any_of(kIgnoredEndings, [&](auto ending) { return name.ends_with(ending); });
}

bool HasAllowedExtension(std::string_view path) {
  return std::ranges::any_of(kExtensions, [&](auto extension) { return Nox::Path::IsExt(path, extension); });
}

}  // namespace morvex
