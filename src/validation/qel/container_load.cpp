// From a configuration to its definition.

#include "engine/text.h"
#include "tagdata/container_tag.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/legacy_upgrade.h"
#include "validation/qel/names.h"
#include "validation/qel/normalise_config.h"
#include "validation/qel/report.h"
#include "validation/qel/soup_children.h"

namespace QELLib {
namespace {

constexpr float kDefaultBuild = 1.3f;
constexpr float kFlat = 0.001f;       // a bridge this high or low is neither bridge nor tunnel
constexpr size_t kMaxKindName = 254;  // no definition has a longer name

const Nox::PString kChunkyMesh("chunky_mesh");
const Nox::PString kUnitMesh("unit_mesh");
const Nox::PString kTrackside("trackside");

// The definition that fits an asset. Some kinds have several, told apart by other tags.
std::string DefinitionName(const TagContainer& config) {
  const std::string kind = Nox::ToLower(config.GetText(kKind));
  if (kind == "bridge") {
    const float height = config.GetFloat(kHeight, 0);
    if (height < -kFlat) return kind;
    return height > kFlat ? "tunnel" : "double-track";
  }
  if (kind == "track") {
    if (config.HasTag(kChunkyMesh)) return "chunky-track";
    return config.HasTag(kUnitMesh) ? "mesh-reducing-track" : kind;
  }
  return kind == "scenery" && config.HasTag(kTrackside) ? "scenery-trackside" : kind;
}

TagContainer FindAssetDefinition(const Definitions& definitions, std::string_view kind) {
  if (kind.size() > kMaxKindName) return {};
  TagContainer found = definitions.Find(Nox::PString(kind));
  return found.GetBool(kTopLevel) ? found : TagContainer();
}

}  // namespace

bool Container::Load(TagContainer& config) {
  DataManager& manager = *DataManager::Get();
  manager.build = config.GetFloat(kMorvexBuild, kDefaultBuild);
  if (dynamic_cast<const morvex::TDBContainerTag*>(config.Chunk()) == nullptr) config = TakeAsTree(config);
  NormaliseConfig(config);
  if (manager.build < kFirstPresentBuild) UpgradeLegacyConfig(config);
  if (config.GetText(kKind).empty()) {
    ReportError(kEntryNoKind);
    return false;
  }

  const std::string kind = DefinitionName(config);
  const Definitions& definitions = manager.GetDefinitionCache();
  TagContainer found = FindAssetDefinition(definitions, kind);
  if (found.IsEmpty()) {
    manager.LoadDefinitions(true);  // the files may have changed since
    found = FindAssetDefinition(definitions, kind);
  }
  if (found.IsEmpty()) {
    ReportError(kEntryKindNotTopLevel);
    return false;
  }

  parent = nullptr;
  index = 0;
  name = kindName = Nox::PString(kind);
  isRoot = true;
  definition = found;
  allDefinitions = definitions.Root();
  Build(found, true);
  SetupRules(found);
  if (config.HasTag(kAlias)) {
    manager.hasAlias = true;
    ReportWarning(kEntryAlias);
  }
  return Fill(found, config);
}

}  // namespace QELLib
