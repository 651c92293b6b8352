// The upgrade of old vehicles and bogeys.

#include <string>
#include <utility>

#include "engine/format.h"
#include "tagdata/kuid.h"
#include "validation/qel/legacy_kinds.h"
#include "validation/qel/names.h"

namespace QELLib {
namespace {

const Nox::PString kBogey("bogey");
const Nox::PString kBogeys("bogeys");
const Nox::PString kReversed("reversed");
const Nox::PString kShadow("shadow");

// What a bogey loses together with its `asset-filename`.
const Nox::PString kTagsOfOldBogeys[] = {Nox::PString("origin"), Nox::PString("objremarks"),
                                         Nox::PString("origregion"), Nox::PString("orgname"),
                                         Nox::PString("light")};

void AddMesh(TagContainer& table, Nox::PString name, const std::string& file, bool isAutoCreated) {
  TagContainer mesh;
  mesh.SetString(kMesh, file);
  mesh.SetBool(kAutoCreate, isAutoCreated);
  table.SetContainer(name, std::move(mesh));
}

// The bogeys of a vehicle, which flat tags name, in the order of finding.
class BogeyList {
 public:
  explicit BogeyList(TagContainer& tags) : tags_(tags) {}

  // False if the tag holds no KUID, and then it stays.
  bool Take(Nox::PString tag, bool isReversed) {
    const morvex::KUID kuid = tags_.GetKUID(tag);
    if (kuid.IsNull()) return false;
    TagContainer bogey;
    bogey.SetKUID(kBogey, kuid);
    bogey.SetBool(kReversed, isReversed);
    bogeys_.SetContainer(Nox::PString(std::to_string(bogeys_.GetCount())), std::move(bogey));
    tags_.Remove(tag);
    return true;
  }
  TagContainer& Soup() { return bogeys_; }

 private:
  TagContainer& tags_;
  TagContainer bogeys_;
};

void GatherBogeys(TagContainer& tags) {
  BogeyList list(tags);
  list.Take(kBogey, false);
  list.Take(Nox::PString("bogey-r"), true);
  for (int n = 0;; ++n) {
    const bool isForward = list.Take(Nox::PString(Nox::FormatText("bogey-%d", n)), false);
    const bool isReversed = list.Take(Nox::PString(Nox::FormatText("bogey-%d-r", n)), true);
    if (!isForward && !isReversed) break;
  }
  tags.SetContainer(kBogeys, list.Soup());
}

}  // namespace

void UpgradeBogey(LegacyConfig& old) {
  if (!old.NeedsMeshTable()) return;
  TagContainer table;
  AddMesh(table, kDefault, old.fileName + ".pm", true);
  AddMesh(table, kShadow, Nox::FormatText("%s_shadow/%s.pm", old.fileName, old.fileName), true);
  old.tags.SetContainer(kMeshTable, std::move(table));
  for (const Nox::PString tag : kTagsOfOldBogeys)
    old.tags.Remove(tag);
}

void UpgradeTrainCar(LegacyConfig& old) {
  if (old.NeedsMeshTable()) {
    TagContainer table;
    AddMesh(table, kDefault, InFolderOfItsName(old.fileName + "_body", "pm"), true);
    AddMesh(table, kShadow, InFolderOfItsName(old.fileName + "_shadow", "pm"), false);
    old.tags.SetContainer(kMeshTable, std::move(table));
  }
  if (!old.tags.HasTag(kBogeys)) GatherBogeys(old.tags);
}

}  // namespace QELLib
