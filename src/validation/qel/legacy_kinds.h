#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/pstring.h"
#include "tagdata/tag_container.h"

namespace QELLib {

using morvex::TagContainer;

// A configuration on its way from the old vocabulary to the present one.
struct LegacyConfig {
  TagContainer& tags;
  std::string fileName;  // the value of `asset-filename`, which is no longer among the tags

  // True for an asset whose meshes are known by `asset-filename` alone.
  bool NeedsMeshTable() const;
};

// What is special to the old assets of one kind.
void UpgradeBogey(LegacyConfig& old);
void UpgradeTrainCar(LegacyConfig& old);
void UpgradeScenery(LegacyConfig& old);
void UpgradeInterior(LegacyConfig& old);
void UpgradeTexture(LegacyConfig& old);
void UpgradeJunction(LegacyConfig& old);
void UpgradeCrossing(LegacyConfig& old);
void UpgradeTurntable(LegacyConfig& old);

// A soup of that name; an empty one is added if there is none.
TagContainer GetOrAddSoup(TagContainer& tags, Nox::PString name);
// The value of a tag, which is taken out.
std::string TakeOutText(TagContainer& tags, Nox::PString name);
// The path of "<name>.<extension>" in the folder "<name>", where old assets keep each mesh.
std::string InFolderOfItsName(const std::string& name, const char* extension);
// How many of the names that a pattern makes of 0, 1, 2 and so on are attachment points of the mesh, up to the first
// that isn't. 0 if the mesh can't be loaded.
uint32_t CountAttachments(std::string_view meshPath, std::string_view pattern);

// Names that several of them use.
inline const Nox::PString kAnim("anim");
inline const Nox::PString kAutoCreate("auto-create");
inline const Nox::PString kNight("night");
inline const Nox::PString kTexture("texture");
inline const Nox::PString kTrack("track");

}  // namespace QELLib
