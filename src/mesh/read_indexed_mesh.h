#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "mesh/indexed_mesh_definition.h"
#include "mesh/mesh_load.h"
#include "mesh/mesh_result.h"

namespace morvex {

// Fill a fresh definition from the bytes of a file; whatever they are, the answer is a result. `fileName` gives
// the definition its name. Of a failure nothing is left but the names of missing materials.

// An .im.
MeshResult ReadIndexedMesh(MorvexIndexedMeshDefinition& definition, std::span<const std::uint8_t> file,
                           std::string_view fileName, const MeshLoadContext& context);

// An imtxt. Settings in the text come before those of the context.
MeshResult ReadIndexedMeshText(MorvexIndexedMeshDefinition& definition, std::span<const std::uint8_t> file,
                               std::string_view fileName, const MeshLoadContext& context);

}  // namespace morvex
