#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "mesh/lod_mesh_definition.h"
#include "mesh/mesh_load.h"
#include "mesh/mesh_result.h"

namespace morvex {

// Fill a fresh definition from the bytes of a file; whatever they are, the answer is a result. `fileName` gives
// the definition its name. Of a failure nothing is left but the names of missing materials.

// An .lm.
MeshResult ReadLodMesh(MorvexIndexedMeshLODDefinition& definition, std::span<const std::uint8_t> file,
                       std::string_view fileName, const MeshLoadContext& context);

// An .lm.txt, whose levels are files of their own.
MeshResult ReadLodMeshText(MorvexIndexedMeshLODDefinition& definition, std::span<const std::uint8_t> file,
                           std::string_view fileName, const MeshLoadContext& context, MeshFileSource& files);

}  // namespace morvex
