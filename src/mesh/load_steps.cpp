#include "mesh/load_steps.h"

#include <utility>

#include "mesh/bind_skin.h"
#include "mesh/read_material.h"
#include "mesh/skeleton_of_influences.h"

namespace morvex {

void BeginMesh(MorvexIndexedMeshDefinition& definition, std::string_view fileName,
               const MeshLoadContext& context) {
  definition.name = Nox::PString(fileName.substr(fileName.find_last_of("/\\") + 1));
  definition.materialPrefix = MaterialPrefix(context);
}

bool KeepPart(MeshLevel& level, MeshPart part) {
  const Nox::GeometryChunkSize& size = part.chunk->Size();
  if (size.vertices == 0 || size.faces == 0 || size.indices == 0) return false;
  level.parts.push_back(std::move(part));
  return true;
}

void FinishMesh(MorvexIndexedMeshDefinition& definition) {
  if (!definition.influences.empty()) definition.skeleton = SkeletonOfInfluences(definition.influences);
  for (const auto& level : definition.levels)
    BindSkin(*level, definition.influences);
  definition.box = BoxOf(definition.MainLevel());
}

}  // namespace morvex
