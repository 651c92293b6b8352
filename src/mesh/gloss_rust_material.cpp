#include "mesh/gloss_rust_material.h"

#include "engine/geometry_chunk.h"

namespace Nox {

Ref<GeometryChunk> MorvexGlossRustMaterial::CreateGeometryChunk(const GeometryChunkSize& size,
                                                                const StandardChunkHint& hint) const {
  Ref<GeometryChunk> chunk = Material::CreateGeometryChunk(size, hint);
  if (chunk != nullptr) chunk->SetProperty(PString(kRustAge), 0);
  return chunk;
}

}  // namespace Nox
