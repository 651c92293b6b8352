#pragma once

#include <cstdint>
#include <string_view>

#include "engine/material.h"
#include "engine/vertex_type.h"

namespace Nox {

// The vertices of the bump materials, known to programs as "PNTA_Morvex": position, normal, one texture
// set, and the tangent in a second set of three components.
inline constexpr std::uint32_t kBumpVertexNumber = 0x62;
inline constexpr std::string_view kBumpVertexName = "PNTA_Morvex";
VertexType BumpVertexType();

// "tbumptex": a texture and a bump map.
class MorvexBumpMaterial : public Material {
 public:
  static constexpr std::string_view kType = "tbumptex";
  static constexpr std::uint32_t kBumpSlot = 8;

  explicit MorvexBumpMaterial(std::string_view type = kType) : Material(PString(type)) {}

  Ref<GeometryChunk> CreateGeometryChunk(const GeometryChunkSize& size,
                                         const StandardChunkHint& hint) const override;

 protected:
  // A map that isn't there is refused, and the slot keeps what it held.
  SetTextureResult TakeTexture(std::uint32_t slot, const ResourceDatabase& database,
                               std::string_view name) override;
  virtual bool IsMapSlot(std::uint32_t slot) const { return slot == kBumpSlot; }
};

// "tbumpgloss": a gloss map as well.
class MorvexBumpGlossMaterial final : public MorvexBumpMaterial {
 public:
  static constexpr std::string_view kType = "tbumpgloss";
  static constexpr std::uint32_t kGlossSlot = 9;

  MorvexBumpGlossMaterial() : MorvexBumpMaterial(kType) {}

 protected:
  bool IsMapSlot(std::uint32_t slot) const override {
    return slot == kGlossSlot || MorvexBumpMaterial::IsMapSlot(slot);
  }
};

}  // namespace Nox
