#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/material.h"
#include "engine/reference.h"
#include "mesh/mesh_input.h"
#include "mesh/mesh_load.h"

namespace morvex {

struct MorvexIndexedMeshDefinition;

// What a file says of a material.
struct MaterialSpec {
  std::string name;  // decorated, as the file has it
  std::vector<std::pair<std::string, std::string>> properties;
  bool flag = false;
  float opacity = 1;
  Nox::DisplayMaterial display;
  std::vector<Nox::TextureDefinition> textures;
};

// In what the materials of an .im differ from those of an .lm.
struct MaterialRules {
  std::uint32_t firstVersion;
  bool raisesPower;  // to kMinPower
};
inline constexpr MaterialRules kIndexedMeshMaterial = {102, true};
inline constexpr MaterialRules kLodMeshMaterial = {103, false};

// Reads a material chunk and makes the material. Its textures join those that the definition will hand out.
// Null if the input failed.
Nox::Ref<Nox::Material> ReadMaterial(MeshInput& in, const MaterialRules& rules,
                                     const MeshLoadContext& context, MorvexIndexedMeshDefinition& definition);

// Makes a material as a file told it, under a name of this mesh's own and with textures from beside the mesh.
// Null in `material` without success.
MeshResult CreateMaterial(MaterialSpec spec, const MeshLoadContext& context,
                          MorvexIndexedMeshDefinition& definition, Nox::Ref<Nox::Material>& material);

// What stands before a file's own name in the names of the resource's materials.
std::string MaterialPrefix(const MeshLoadContext& context);

}  // namespace morvex
