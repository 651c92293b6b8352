#include "mesh/indexed_mesh_definition.h"

namespace morvex {

std::uint64_t MeshLevel::VertexTotal() const {
  std::uint64_t total = 0;
  for (const MeshPart& part : parts)
    total += part.chunk->Size().vertices;
  return total;
}

std::uint64_t MeshLevel::FaceTotal() const {
  std::uint64_t total = 0;
  for (const MeshPart& part : parts)
    total += part.chunk->Size().faces;
  return total;
}

MeshLevel& AddLevel(MorvexIndexedMeshDefinition& definition) {
  return *definition.levels.emplace_back(std::make_shared<MeshLevel>());
}

}  // namespace morvex
