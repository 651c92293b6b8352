#include "mesh/multi_pfx_material.h"

#include "engine/geometry_chunk.h"
#include "engine/resource_database.h"

namespace Nox {

Ref<GeometryChunk> MorvexMultiPFXMaterial::CreateGeometryChunk(const GeometryChunkSize& size,
                                                               const StandardChunkHint& hint) const {
  VertexType type(kVertexNumber);
  type.AddItem(0, StreamId::kPosition, 12)
      .AddItem(0, StreamId::kColour, 4)
      .AddItem(0, TextureStream(0), 8)
      .AddItem(0, TextureStream(1), 8);
  return GeometryChunk::Create(type, size, hint);
}

SetTextureResult MorvexMultiPFXMaterial::TakeTexture(std::uint32_t slot, const ResourceDatabase& database,
                                                     std::string_view name) {
  if (slot != kSecondTextureSlot) return Material::TakeTexture(slot, database, name);
  const bool isThere = database.HasTexture(name);
  HoldTexture(slot, isThere ? name : std::string_view());
  return isThere ? SetTextureResult::kTaken : SetTextureResult::kNotFound;
}

}  // namespace Nox
