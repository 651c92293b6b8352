#include "validation/qel/message_table.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/path.h"
#include "engine/text.h"
#include "frontend/settings/product_language.h"
#include "frontend/settings/product_settings.h"
#include "tagdata/tag_container.h"

namespace QELLib {
namespace {

// All other languages read the table without a suffix.
constexpr std::array<std::string_view, 11> kOwnTables = {"DE", "FR", "IT", "RU", "CZ", "PL",
                                                         "ES", "CH", "SE", "CN", "NL"};

std::string FileName(std::string_view language) {
  const auto own = std::find_if(kOwnTables.begin(), kOwnTables.end(),
                                [&](std::string_view code) { return Nox::EqualsIgnoreCase(code, language); });
  const std::string suffix = own == kOwnTables.end() ? "" : "-" + std::string(*own);
  return "stringtable" + suffix + ".txt";
}

}  // namespace

std::string ProductLanguage() {
  std::string language;
  int32_t best = 0;
  const size_t count = morvex::ProductEnumerate(morvex::kMorvexClass, morvex::kMorvexClass);
  for (size_t i = 0; i < count; ++i) {
    if (!morvex::ProductOpenIndexed(i)) continue;
    const int32_t build = morvex::ProductGetBuild();
    if (build > best) {
      best = build;
      language = morvex::ProductGetLanguage();
    }
    morvex::ProductClose();
  }
  std::string known = language;
  morvex::ProductLanguageToWindows(known);
  morvex::ProductApplyLanguage();
  return language.empty() ? language : known;
}

std::vector<Nox::PString> ReadMessageTable(std::string_view folder, std::string_view language) {
  morvex::TagContainer file;
  if (!file.Load({}, Nox::Path::AddPath(folder, FileName(language)))) return {};
  std::vector<Nox::PString> texts;
  for (uint32_t i = 0; i < file.GetCount(); ++i)
    texts.push_back(file.GetString(Nox::PString(std::to_string(i))));
  return texts;
}

}  // namespace QELLib
