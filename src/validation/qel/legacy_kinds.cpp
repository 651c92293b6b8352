#include "validation/qel/legacy_kinds.h"

#include <memory>

#include "engine/format.h"
#include "engine/path.h"
#include "mesh/mesh_data.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/names.h"

namespace QELLib {

bool LegacyConfig::NeedsMeshTable() const {
  return !fileName.empty() && !tags.HasTag(kMeshTable);
}

TagContainer GetOrAddSoup(TagContainer& tags, Nox::PString name) {
  TagContainer soup = tags.GetContainer(name);
  if (soup.IsEmpty()) tags.SetContainer(name, soup);
  return soup;
}

std::string TakeOutText(TagContainer& tags, Nox::PString name) {
  std::string text = tags.GetText(name);
  tags.Remove(name);
  return text;
}

std::string InFolderOfItsName(const std::string& name, const char* extension) {
  return Nox::Path::AddPath(name, name + "." + extension);
}

uint32_t CountAttachments(std::string_view meshPath, std::string_view pattern) {
  const std::unique_ptr<morvex::MeshData> mesh = DataManager::Get()->PeekMesh(meshPath);
  uint32_t count = 0;
  while (mesh != nullptr && mesh->HasAttachment(Nox::FormatText(pattern, count)))
    ++count;
  return count;
}

}  // namespace QELLib
