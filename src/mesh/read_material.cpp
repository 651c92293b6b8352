#include "mesh/read_material.h"

#include "mesh/mesh_format.h"

// MATL, versions 102 and 103
//
//   padded string     decorated name
//   u32 properties, properties x (padded string key, padded string value)
//   u32 flag          any bit
//   f32 opacity
//   4 x 3 f32         colours; the fourth is stored as twice its value
//   f32 power
//   u32 textures, textures x (u32 slot, padded string file name, f32 weight)
namespace morvex {
namespace {

MaterialSpec ReadSpec(MeshInput& in) {
  MaterialSpec spec;
  spec.name = in.Text();
  const std::uint32_t properties = in.U32();
  for (std::uint32_t i = 0; i < properties && in.Ok(); ++i) {
    const std::string_view key = in.Text();
    spec.properties.emplace_back(key, in.Text());
  }
  spec.flag = in.U32() != 0;
  spec.opacity = in.F32();
  for (Nox::Colour& colour : spec.display.colours) {
    colour.r = in.F32();
    colour.g = in.F32();
    colour.b = in.F32();
  }
  spec.display.power = in.F32();
  const std::uint32_t textures = in.U32();
  for (std::uint32_t i = 0; i < textures && in.Ok(); ++i) {
    const std::uint32_t slot = in.U32();
    const std::string_view name = in.Text();
    spec.textures.push_back({slot, std::string(name), in.F32()});
  }
  return spec;
}

// Old exporters left rubbish where a version's fields were not used yet.
void ApplyRules(const MaterialRules& rules, std::uint32_t version, Nox::DisplayMaterial& display) {
  Nox::Colour& stored = display.colours[3];
  constexpr float kScale = 1 / MeshFormat::kStoredColourScale;
  stored = {stored.r * kScale, stored.g * kScale, stored.b * kScale, stored.a * kScale};
  if (version < MeshFormat::kMaterialVersion) {
    display.colours[2] = {0, 0, 0, 0};
    display.power = MeshFormat::kMinPower;
  }
  if (rules.raisesPower && display.power < MeshFormat::kMinPower) display.power = MeshFormat::kMinPower;
}

}  // namespace

Nox::Ref<Nox::Material> ReadMaterial(MeshInput& in, const MaterialRules& rules,
                                     const MeshLoadContext& context,
                                     MorvexIndexedMeshDefinition& definition) {
  MeshInput::Chunk chunk;
  if (!in.Open(MeshFormat::kMaterial, rules.firstVersion, MeshFormat::kMaterialVersion, chunk))
    return nullptr;
  MaterialSpec spec = ReadSpec(in);
  if (!in.Ok()) return nullptr;
  ApplyRules(rules, chunk.version, spec.display);
  Nox::Ref<Nox::Material> material;
  if (const MeshResult result = CreateMaterial(std::move(spec), context, definition, material))
    in.Fail(result);
  return material;
}

}  // namespace morvex
