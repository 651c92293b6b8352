#pragma once

#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "engine/material_manager.h"
#include "mesh/mesh_load.h"
#include "mesh/mesh_result.h"

inline const Nox::MaterialManager kFuzzMaterials;

// Any bytes are refused or give a mesh. What a mesh is written as must read back, and be written the same again.
template <typename Definition>
void RoundTrip(std::span<const std::uint8_t> bytes,
               morvex::MeshResult (*read)(Definition&, std::span<const std::uint8_t>, std::string_view,
                                          const morvex::MeshLoadContext&),
               morvex::MeshResult (*save)(const Definition&, std::vector<std::uint8_t>&)) {
  morvex::MeshLoadContext context;
  context.materials = &kFuzzMaterials;
  context.resourceName = "a/fuzz";
  context.display.skinsMeshes = bytes.size() % 2 == 0;
  std::vector<std::uint8_t> written;
  for (int round = 0; round < 2; ++round) {
    Definition mesh;
    if (read(mesh, round == 0 ? bytes : written, "fuzz", context) != morvex::RES_SUCCESS) {
      if (round == 0) return;
      std::abort();
    }
    mesh.skeleton.DepthFirst();
    std::vector<std::uint8_t> now;
    if (save(mesh, now) != morvex::RES_SUCCESS) std::abort();
    if (round == 1 && now != written) std::abort();
    written = now;
  }
}
