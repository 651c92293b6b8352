// The upgrade of old configurations: what all kinds have in common, and the order.

#include "validation/qel/legacy_upgrade.h"

#include <string>
#include <utility>

#include "engine/text.h"
#include "validation/qel/legacy_kinds.h"
#include "validation/qel/names.h"
#include "validation/qel/soup_children.h"

namespace QELLib {
namespace {

constexpr float kUpgradedBuild = 2.7f;
constexpr int32_t kIconSize = 64;  // pixels each way

const Nox::PString kAuteur("auteur");
const Nox::PString kAuthor("author");
const Nox::PString kClass("class");
const Nox::PString kClassLibrary("classlibrary");
const Nox::PString kIconTexture("icon-texture");
const Nox::PString kImage("image");
const Nox::PString kScriptLibrary("scriptlibrary");
const Nox::PString kSound("sound");
const Nox::PString kSoundScript("soundscript");
const Nox::PString kThumbnails("thumbnails");
const Nox::PString kWidth("width");

// The icon of an asset is now its first thumbnail. Behaviors come to this before other kinds do.
void UpgradeIcon(LegacyConfig& old) {
  if (old.tags.GetText(kIconTexture).empty() || old.tags.HasTag(kThumbnails)) return;
  TagContainer thumbnail, thumbnails;
  thumbnail.SetString(kImage, TakeOutText(old.tags, kIconTexture));
  thumbnail.SetInt(kWidth, kIconSize);
  thumbnail.SetInt(kHeight, kIconSize);
  thumbnails.SetContainer(Nox::PString("0"), std::move(thumbnail));
  old.tags.SetContainer(kThumbnails, std::move(thumbnails));
}

struct KindUpgrade {
  std::string_view kind;
  void (*upgrade)(LegacyConfig& old);
};
constexpr KindUpgrade kKindUpgrades[] = {
    {"bogey", &UpgradeBogey},         {"behavior", &UpgradeIcon},       {"groundtexture", &UpgradeTexture},
    {"texture", &UpgradeTexture},     {"mojunction", &UpgradeJunction}, {"mocrossing", &UpgradeCrossing},
    {"turntable", &UpgradeTurntable}, {"traincar", &UpgradeTrainCar},   {"scenery", &UpgradeScenery},
    {"interior", &UpgradeInterior},
};

// Tags without a meaning today, by the kind that had them.
struct KindTag {
  std::string_view kind;
  Nox::PString tag;
};
const KindTag kTagsOfKinds[] = {
    {"hornsound", Nox::PString("objremarks")},
    {"groundtexture", Nox::PString("rgb")},
    {"texture", Nox::PString("rgb")},
    {"track", kHeight},
    {"traincar", Nox::PString("running-numbers")},
    {"track", Nox::PString("mini")},
    {"bridge", Nox::PString("mini")},
};
// The same, of every kind.
const Nox::PString kTagsOfAll[] = {
    Nox::PString("fontsize"),     Nox::PString("fontcolor"), Nox::PString("type"),    kName,
    Nox::PString("name-ru"),      Nox::PString("name-es"),   Nox::PString("name-fr"), Nox::PString("name-pl"),
    Nox::PString("name-de"),      Nox::PString("name-it"),   Nox::PString("name-cz"), Nox::PString("name-cn"),
    Nox::PString("name-nl"),      Nox::PString("dovik"),     Nox::PString("company"), Nox::PString("morvex"),
    Nox::PString("morvex_build"),
};

// What an asset without such a category gets.
struct Fallback {
  Nox::PString tag;
  std::string_view value;
};
const Fallback kCategories[] = {
    {Nox::PString("category-era"), "1800s"},
    {Nox::PString("category-class"), "ZX"},
    {Nox::PString("category-region"), "00"},
};

void MoveValue(TagContainer& tags, Nox::PString from, Nox::PString to) {
  const std::string value = TakeOutText(tags, from);
  if (!value.empty()) tags.SetString(to, value);
}

// Calls `upgrade` with each soup that is a child of `soup`, and its name.
template <typename Upgrade>
void ForEachSoup(const TagContainer& soup, Upgrade upgrade) {
  for (uint32_t i = 0; i < soup.GetCount(); ++i) {
    TagContainer child(ChildAt(soup, i));
    if (child.Chunk()->GetKind() == morvex::ChunkKind::kContainer) upgrade(child, soup.GetName(i));
  }
}

// A name board without a text of its own shows its own name.
void NameTheNameless(TagContainer& tags) {
  if (!tags.HasTag(kMeshTable)) return;
  tags.Remove(kNight);
  ForEachSoup(tags.GetContainer(kMeshTable), [](const TagContainer& mesh, Nox::PString) {
    ForEachSoup(mesh.GetContainer(kEffects), [](TagContainer& effect, Nox::PString itsName) {
      if (effect.GetText(kKind) == kName && effect.GetText(kName).empty()) effect.SetString(kName, itsName);
    });
  });
}

// Sounds were listed as names without values; now they are numbered.
void NumberSounds(TagContainer& sounds) {
  TagContainer numbered;
  for (uint32_t i = 0; i < sounds.GetCount(); ++i) {
    const Nox::PString sound = sounds.GetName(i);
    const std::string value = TextOf(*ChildAt(sounds, i));
    if (value.empty()) {
      numbered.SetString(Nox::PString(std::to_string(i)), sound);
    } else {
      numbered.SetString(sound, value);
    }
  }
  sounds.GetRoot()->CopyFrom(*numbered.GetRoot());
}

}  // namespace

void UpgradeLegacyConfig(TagContainer& config) {
  MoveValue(config, kScriptLibrary, kScript);
  MoveValue(config, kClassLibrary, kClass);
  LegacyConfig old = {config, TakeOutText(config, kAssetFileName)};
  const std::string kind = config.GetText(kKind);
  config.SetFloat(kMorvexBuild, kUpgradedBuild);
  for (const KindUpgrade& row : kKindUpgrades) {
    if (Nox::EqualsIgnoreCase(kind, row.kind)) row.upgrade(old);
  }
  for (const KindTag& row : kTagsOfKinds) {
    if (Nox::EqualsIgnoreCase(kind, row.kind)) config.Remove(row.tag);
  }
  for (const Nox::PString tag : kTagsOfAll)
    config.Remove(tag);
  if (!Nox::EqualsIgnoreCase(kind, "map")) config.Remove(kRegion);
  NameTheNameless(config);
  ForEachSoup(config.GetContainer(kSoundScript), [](const TagContainer& entry, Nox::PString) {
    TagContainer sounds = entry.GetContainer(kSound);
    if (sounds.IsValid()) NumberSounds(sounds);
  });
  for (const Fallback& row : kCategories) {
    if (config.GetText(row.tag).empty()) config.SetString(row.tag, row.value);
  }
  UpgradeIcon(old);
  MoveValue(config, kAuteur, kAuthor);
}

}  // namespace QELLib
