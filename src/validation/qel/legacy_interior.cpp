// The upgrade of old interiors.

#include <string>
#include <utility>
#include <vector>

#include "engine/format.h"
#include "validation/qel/legacy_kinds.h"
#include "validation/qel/names.h"
#include "validation/qel/soup_children.h"

namespace QELLib {
namespace {

const Nox::PString kCamera("camera");
const Nox::PString kCameraDefault("cameradefault");
const Nox::PString kCameraList("cameralist");

// What is attached to the cab is a mesh of it; what hangs nowhere goes.
void AttachmentsBecomeMeshes(TagContainer& tags) {
  const TagContainer attachments = tags.GetContainer(kAttachment);
  if (attachments.IsEmpty()) return;
  TagContainer table;
  for (uint32_t i = 0; i < attachments.GetCount(); ++i) {
    TagContainer mesh(ChildAt(attachments, i));
    if (!mesh.HasTag(kAtt)) continue;
    if (!mesh.HasTag(kAttParent)) mesh.SetString(kAttParent, kDefault);
    table.GetRoot()->AddChild(attachments.GetName(i), mesh.GetRoot());
  }
  tags.Remove(kAttachment);
  tags.SetContainer(kMeshTable, std::move(table));
}

void AddDefaultMesh(TagContainer& tags) {
  const std::string file = tags.GetText(kMesh);
  if (file.empty()) return;
  TagContainer mesh;
  mesh.SetString(kMesh, file);
  mesh.SetBool(kAutoCreate, true);
  GetOrAddSoup(tags, kMeshTable).SetContainer(kDefault, std::move(mesh));
  tags.Remove(kMesh);
}

// Cameras now turn too: the two numbers added stand for that.
void AddCamera(TagContainer& tags) {
  std::vector<float> camera;
  if (!tags.GetFloatArray(kCamera, camera)) return;
  camera.insert(camera.end(), 2, 0.0f);
  TagContainer list = GetOrAddSoup(tags, kCameraList);
  list.SetFloatArray(Nox::PString(Nox::FormatText("camera%d", list.GetCount())), camera);
  tags.Remove(kCamera);
}

}  // namespace

void UpgradeInterior(LegacyConfig& old) {
  AttachmentsBecomeMeshes(old.tags);
  AddDefaultMesh(old.tags);
  AddCamera(old.tags);
  if (!old.tags.HasTag(kCameraDefault)) old.tags.SetInt(kCameraDefault, 0);
}

}  // namespace QELLib
