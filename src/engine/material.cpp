#include "engine/material.h"

#include <algorithm>

#include "engine/geometry_chunk.h"
#include "engine/resource_database.h"

namespace Nox {

Ref<GeometryChunk> Material::CreateGeometryChunk(const GeometryChunkSize& size,
                                                 const StandardChunkHint& hint) const {
  return GeometryChunk::Create(StandardVertexType(hint), size, hint);
}

SetTextureResult Material::SetTexture(std::uint32_t slot, const ResourceDatabase& database,
                                      std::string_view name, float weight) {
  definitions_.push_back({slot, std::string(name), weight});
  return TakeTexture(slot, database, name);
}

// Whether the file is there is asked later, by whoever wants the texture.
SetTextureResult Material::TakeTexture(std::uint32_t slot, const ResourceDatabase&, std::string_view name) {
  if (slot >= kBaseSlots) return SetTextureResult::kNoSuchSlot;
  HoldTexture(slot, name);
  return SetTextureResult::kTaken;
}

void Material::HoldTexture(std::uint32_t slot, std::string_view name) {
  const auto held = std::find_if(held_.begin(), held_.end(),
                                 [&](const HeldTexture& texture) { return texture.slot == slot; });
  if (held != held_.end()) {
    held->name = name;
  } else {
    held_.push_back({slot, std::string(name)});
  }
}

std::string_view Material::GetTexture(std::uint32_t slot) const {
  for (const HeldTexture& texture : held_) {
    if (texture.slot == slot) return texture.name;
  }
  return {};
}

}  // namespace Nox
