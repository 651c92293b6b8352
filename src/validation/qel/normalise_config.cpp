#include "validation/qel/normalise_config.h"

#include <string>

#include "engine/text.h"
#include "tagdata/kuid.h"
#include "tagdata/tag_container.h"
#include "validation/qel/names.h"

namespace QELLib {
namespace {

using morvex::TagContainer;

const Nox::PString kCategoryRegion("category-region");
const Nox::PString kCategoryEra("category-era");

// Left behind by other programs, or never meant as tags.
const Nox::PString kLeftOvers[] = {Nox::PString("thumbnail"), kCacheSoup, Nox::PString("__filename"),
                                   Nox::PString("__dir")};
const Nox::PString kComments[] = {Nox::PString(";"),        Nox::PString("\""),
                                  Nox::PString("rem"),      Nox::PString("licence"),
                                  Nox::PString("licence:"), Nox::PString("licence:-")};

void NameUser(TagContainer& config) {
  if (!config.GetText(kUserName).empty()) return;
  const std::string name = config.GetText(kName);
  if (name.empty()) {
    const std::string fileName = config.GetText(kAssetFileName);
    if (!fileName.empty()) config.SetString(kUserName, fileName);
    return;
  }
  config.SetString(kUserName, name);
  config.Remove(kName);
}

// The region of an old map may be the asset that it lies in.
void DropRegionAsset(TagContainer& config) {
  if (!Nox::EqualsIgnoreCase(config.GetText(kKind), "map")) return;
  if (!morvex::KUID(config.GetText(kRegion), true).IsNull()) config.Remove(kRegion);
}

std::string UpperCase(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

std::string AsDecade(std::string era) {
  return era.ends_with('s') ? era : era + "s";
}

// "<list>-0", "<list>-1" and on become one list.
void JoinNumbered(TagContainer& config, Nox::PString list, std::string (*spell)(std::string)) {
  std::string joined;
  for (int i = 0;; ++i) {
    const Nox::PString numbered(list.Text() + "-" + std::to_string(i));
    const std::string item = config.GetText(numbered);
    if (item.empty()) break;
    joined += (joined.empty() ? "" : ";") + spell(item);
    config.Remove(numbered);
  }
  if (!joined.empty()) config.SetString(list, joined);
}

}  // namespace

void NormaliseConfig(TagContainer& config) {
  NameUser(config);
  DropRegionAsset(config);
  for (const Nox::PString name : kLeftOvers)
    config.Remove(name);
  JoinNumbered(config, kCategoryRegion, &UpperCase);
  JoinNumbered(config, kCategoryEra, &AsDecade);
  if (config.GetText(kLicense).empty()) config.Remove(kLicense);
  for (const Nox::PString name : kComments)
    config.Remove(name);
}

}  // namespace QELLib
