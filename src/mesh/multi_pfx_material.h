#pragma once

#include <cstdint>
#include <string_view>

#include "engine/material.h"

namespace Nox {

// "tmpfx": two textures, for particle effects; its vertices have a colour and two texture sets.
class MorvexMultiPFXMaterial final : public Material {
 public:
  static constexpr std::string_view kType = "tmpfx";
  static constexpr std::uint32_t kSecondTextureSlot = 12;
  static constexpr std::uint32_t kVertexNumber = 0x62;

  MorvexMultiPFXMaterial() : Material(PString(kType)) {}

  Ref<GeometryChunk> CreateGeometryChunk(const GeometryChunkSize& size,
                                         const StandardChunkHint& hint) const override;

 protected:
  // A second texture that isn't there is refused and leaves its slot empty.
  SetTextureResult TakeTexture(std::uint32_t slot, const ResourceDatabase& database,
                               std::string_view name) override;
};

}  // namespace Nox
