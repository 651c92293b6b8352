// The upgrade of old scenery and of textures.

#include <string>
#include <utility>

#include "engine/format.h"
#include "validation/qel/legacy_kinds.h"
#include "validation/qel/names.h"

namespace QELLib {
namespace {

constexpr size_t kLongestNumbers = 255;              // as in a text configuration
constexpr std::string_view kNameBoard = "a.name%d";  // the attachment point of a name board

const Nox::PString kAnimationLoopSpeed("animation-loop-speed");
const Nox::PString kAutoAnimation("auto-animation");
const Nox::PString kFontColor("fontcolor");
const Nox::PString kFontSize("fontsize");
const Nox::PString kNightMeshBase("night-mesh-base");

// A longer text is no colour and no size, and isn't worth a copy on each of any number of boards.
std::string GetNumbers(const TagContainer& tags, Nox::PString name) {
  const std::string text = tags.GetText(name);
  return text.size() <= kLongestNumbers ? text : "";
}

// The engine wrote the asset's name on each such point; now an effect does.
void AddNameBoards(const TagContainer& tags, std::string_view meshFile, TagContainer& mesh) {
  const uint32_t count = CountAttachments(meshFile, kNameBoard);
  if (count == 0) return;
  const std::string color = GetNumbers(tags, kFontColor), size = GetNumbers(tags, kFontSize);
  TagContainer effects;
  for (uint32_t i = 0; i < count; ++i) {
    TagContainer effect;
    effect.SetString(kKind, kName);
    effect.SetString(kAtt, Nox::FormatText(kNameBoard, i));
    if (!color.empty()) effect.SetString(kFontColor, color);
    if (!size.empty()) effect.SetString(kFontSize, size);
    effect.SetString(kName, kName);
    effects.SetContainer(Nox::PString(std::to_string(i)), std::move(effect));
  }
  mesh.SetContainer(kEffects, std::move(effects));
}

TagContainer DefaultMesh(TagContainer& tags, const std::string& file) {
  TagContainer mesh;
  mesh.SetBool(kAutoCreate, true);
  mesh.SetString(kMesh, file);
  if (tags.GetBool(kAutoAnimation)) {
    mesh.SetString(kAnim, "anim.kin");
    mesh.SetFloat(kAnimationLoopSpeed, 1);
  }
  tags.Remove(kAutoAnimation);
  AddNameBoards(tags, file, mesh);
  return mesh;
}

}  // namespace

void UpgradeScenery(LegacyConfig& old) {
  if (!old.NeedsMeshTable()) return;
  TagContainer table;
  table.SetContainer(kDefault, DefaultMesh(old.tags, old.fileName + ".im"));
  const std::string night = TakeOutText(old.tags, kNight);
  if (!night.empty()) {
    TagContainer mesh;
    mesh.SetString(kMesh, InFolderOfItsName(night, "im"));
    mesh.SetString(kNightMeshBase, kDefault);
    table.SetContainer(kNight, std::move(mesh));
  }
  old.tags.SetContainer(kMeshTable, std::move(table));
}

void UpgradeTexture(LegacyConfig& old) {
  if (old.fileName.empty() || old.tags.HasTag(kTexture)) return;
  old.tags.SetString(kTexture, old.fileName + ".texture");
}

}  // namespace QELLib
