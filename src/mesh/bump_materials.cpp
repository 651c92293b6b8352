#include "mesh/bump_materials.h"

#include "engine/geometry_chunk.h"
#include "engine/resource_database.h"

namespace Nox {

VertexType BumpVertexType() {
  VertexType type(kBumpVertexNumber);
  type.AddItem(0, StreamId::kPosition, 12)
      .AddItem(0, StreamId::kNormal, 12)
      .AddItem(0, TextureStream(0), 8)
      .AddItem(0, TextureStream(1), 12);
  return type;
}

// The light is the bump programs' own work, and so is nothing of the engine's: its software lighting is
// switched off, and a skin that goes with it moves by software.
Ref<GeometryChunk> MorvexBumpMaterial::CreateGeometryChunk(const GeometryChunkSize& size,
                                                           const StandardChunkHint& hint) const {
  StandardChunkHint own = hint;
  if (hint.softwareLighting) {
    own.softwareLighting = false;
    own.softwareSkinned = hint.skinned;
  }
  return GeometryChunk::Create(BumpVertexType(), size, own);
}

SetTextureResult MorvexBumpMaterial::TakeTexture(std::uint32_t slot, const ResourceDatabase& database,
                                                 std::string_view name) {
  if (!IsMapSlot(slot)) return Material::TakeTexture(slot, database, name);
  if (!database.HasTexture(name)) return SetTextureResult::kNotFound;
  HoldTexture(slot, name);
  return SetTextureResult::kTaken;
}

}  // namespace Nox
