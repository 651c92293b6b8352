// The upgrade of old objects that track runs to or through: junctions, level crossings and turntables. Their meshes
// were known by modes, and their track by attachment points alone.

#include <memory>
#include <string>
#include <utility>

#include "engine/format.h"
#include "engine/path.h"
#include "engine/text.h"
#include "mesh/mesh_data.h"
#include "tagdata/kuid.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/legacy_kinds.h"
#include "validation/qel/names.h"

namespace QELLib {
namespace {

const Nox::PString kMode0("mode0");
const Nox::PString kMode1("mode1");
const Nox::PString kRoad("road");
const Nox::PString kTurntable("turntable");
const Nox::PString kUseAdjoiningTrackType("useadjoiningtracktype");
const Nox::PString kVertices("vertices");

// A mode whose tag is missing lies in the folder of the tag's name.
std::string TakeOutMode(TagContainer& tags, Nox::PString mode) {
  const std::string value = TakeOutText(tags, mode);
  return value.empty() ? mode.Text() : value;
}

void AddTrackPiece(TagContainer& pieces, const std::string& name, const std::string& start,
                   const std::string& end, const morvex::KUID& track) {
  TagContainer vertices, piece;
  vertices.SetString(Nox::PString("0"), start);
  vertices.SetString(Nox::PString("1"), end);
  piece.SetContainer(kVertices, std::move(vertices));
  piece.SetKUID(kTrack, track);
  piece.SetBool(kUseAdjoiningTrackType, true);
  pieces.SetContainer(Nox::PString(name), std::move(piece));
}

// The pieces of track "<name>0", "<name>1" and on: each lies between two attachment points of the mesh,
// "a.<points>0a" and "a.<points>0b", "a.<points>1a" and "a.<points>1b" and on.
void AddTrack(TagContainer& pieces, const morvex::MeshData& mesh, std::string_view points,
              std::string_view name, const morvex::KUID& track) {
  for (int n = 0;; ++n) {
    const std::string start = Nox::FormatText("a.%s%da", points, n);
    const std::string end = Nox::FormatText("a.%s%db", points, n);
    if (!mesh.HasAttachment(start) || !mesh.HasAttachment(end)) return;
    AddTrackPiece(pieces, Nox::FormatText("%s%d", name, n), start, end, track);
  }
}

// A mesh of a junction stands under its own name.
void AddMode(TagContainer& tags, TagContainer& table, Nox::PString mode, std::string_view autoCreate) {
  const std::string name = tags.GetText(mode);
  if (name.empty()) return;
  TagContainer mesh;
  mesh.SetString(kMesh, InFolderOfItsName(name, "im"));
  mesh.SetString(kAutoCreate, autoCreate);
  table.SetContainer(Nox::PString(Nox::ToLower(name)), std::move(mesh));
  tags.Remove(mode);
}

}  // namespace

void UpgradeJunction(LegacyConfig& old) {
  TagContainer table = GetOrAddSoup(old.tags, kMeshTable);
  AddMode(old.tags, table, kMode0, "1");
  AddMode(old.tags, table, kMode1, "0");
}

// Whether the animation can be read is found out when its tag is judged.
void UpgradeCrossing(LegacyConfig& old) {
  TagContainer& tags = old.tags;
  const morvex::KUID track = tags.GetKUID(kTrack), road = tags.GetKUID(kRoad);
  tags.Remove(kTrack);
  tags.Remove(kRoad);
  if (tags.HasTag(kMeshTable)) return;

  const std::string folder = TakeOutMode(tags, kMode0);
  tags.Remove(kMode1);
  TagContainer mesh, table;
  mesh.SetString(kMesh, InFolderOfItsName(folder, "im"));
  mesh.SetString(kAnim, Nox::Path::AddPath(folder, "anim.kin"));
  mesh.SetBool(kAutoCreate, true);
  const std::unique_ptr<morvex::MeshData> loaded = DataManager::Get()->PeekMesh(mesh.GetText(kMesh));
  table.SetContainer(kDefault, std::move(mesh));
  tags.SetContainer(kMeshTable, std::move(table));
  if (loaded == nullptr || tags.HasTag(kAttachedTrack)) return;

  TagContainer pieces;
  AddTrack(pieces, *loaded, "road", "road", road);
  AddTrack(pieces, *loaded, "track", "track", track);
  tags.SetContainer(kAttachedTrack, std::move(pieces));
}

// Track of the outer part ends at points with an `o`, that of the turning part at points with an `i`.
void UpgradeTurntable(LegacyConfig& old) {
  TagContainer& tags = old.tags;
  const morvex::KUID track = tags.GetKUID(kTrack);
  tags.Remove(kTrack);
  if (tags.HasTag(kMeshTable)) return;

  const std::string outerFile = InFolderOfItsName(TakeOutMode(tags, kMode0), "im");
  const std::string innerFile = InFolderOfItsName(TakeOutMode(tags, kMode1), "im");
  TagContainer outer, inner, table;
  outer.SetString(kMesh, outerFile);
  outer.SetBool(kAutoCreate, true);
  inner.SetString(kMesh, innerFile);
  table.SetContainer(kDefault, std::move(outer));
  table.SetContainer(kTurntable, std::move(inner));
  tags.SetContainer(kMeshTable, std::move(table));

  const std::unique_ptr<morvex::MeshData> outerMesh = DataManager::Get()->PeekMesh(outerFile);
  const std::unique_ptr<morvex::MeshData> innerMesh = DataManager::Get()->PeekMesh(innerFile);
  if (outerMesh == nullptr || innerMesh == nullptr || tags.HasTag(kAttachedTrack)) return;
  TagContainer pieces;
  AddTrack(pieces, *outerMesh, "otrack", "tracko", track);
  AddTrack(pieces, *innerMesh, "itrack", "tracki", track);
  tags.SetContainer(kAttachedTrack, std::move(pieces));
}

}  // namespace QELLib
