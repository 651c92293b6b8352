#include "validation/categories/asset_name.h"

#include <algorithm>

#include "tagdata/tag_container.h"

namespace morvex {
namespace {

const Nox::PString kClass("class");
const Nox::PString kMeshTable("mesh-table");
const Nox::PString kMorvexBuild("morvex-build");
const Nox::PString kName("name");
const Nox::PString kScriptClass("scriptclass");
const Nox::PString kUsername("username");

constexpr std::string_view kPadding = " \t\r\n_";
constexpr std::string_view kQuotes = "'\"\x93\x94";  // the last two are curved ones of the system code page
constexpr std::string_view kOpeningQuote = "\xE2\x80\x9C";
constexpr std::string_view kClosingQuote = "\xE2\x80\x9D";

bool IsQuote(char c) {
  return kQuotes.find(c) != kQuotes.npos;
}

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

// The curved quotes of the code page are also the last bytes of many UTF-8 characters, which must stay whole.
bool EndsWithQuote(std::string_view text) {
  if (text.empty() || !IsQuote(text.back())) return false;
  return IsAscii(text.back()) || text.size() == 1 || IsAscii(text[text.size() - 2]);
}

std::string_view LastElement(std::string_view path) {
  while (path.ends_with('/') || path.ends_with('\\'))
    path.remove_suffix(1);
  const size_t slash = path.find_last_of("/\\");
  return slash == path.npos ? path : path.substr(slash + 1);
}

}  // namespace

std::string CleanAssetName(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kPadding), text.size()));
  text = text.substr(0, text.find_last_not_of(kPadding) + 1);
  if (text.starts_with(kOpeningQuote)) {
    text.remove_prefix(kOpeningQuote.size());
  } else if (!text.empty() && IsQuote(text.front())) {
    text.remove_prefix(1);
  }
  if (text.ends_with(kClosingQuote)) {
    text.remove_suffix(kClosingQuote.size());
  } else if (EndsWithQuote(text)) {
    text.remove_suffix(1);
  }
  return std::string(text.empty() ? "Untitled" : text);
}

std::string GetAssetName(const TagContainer& config, std::string_view folderPath) {
  std::string name = config.GetText(kUsername);
  if (name.empty()) name = config.GetText(kName);
  return CleanAssetName(name.empty() ? LastElement(folderPath) : name);
}

float GetBuildVersion(const TagContainer& config) {
  const float build = config.GetFloat(kMorvexBuild);
  if (build >= 1.0f && build < 100.0f) return build;
  const bool newer = config.HasTag(kMeshTable) || config.HasTag(kClass) || config.HasTag(kScriptClass);
  return newer ? 2.0f : 1.3f;
}

}  // namespace morvex
