#pragma once

#include <string_view>

#include "engine/material.h"

namespace Nox {

// "tglossrust": reflects, and rusts with age.
class MorvexGlossRustMaterial final : public Material {
 public:
  static constexpr std::string_view kType = "tglossrust";
  // The property of its chunks that tells how far they have rusted, 0 at first.
  static constexpr std::string_view kRustAge = "RustAge";

  MorvexGlossRustMaterial() : Material(PString(kType)) {}

  Ref<GeometryChunk> CreateGeometryChunk(const GeometryChunkSize& size,
                                         const StandardChunkHint& hint) const override;
};

}  // namespace Nox
