#pragma once

#include <cstdint>
#include <vector>

#include "mesh/indexed_mesh_definition.h"
#include "mesh/lod_mesh_definition.h"
#include "mesh/mesh_result.h"

namespace morvex {

// Append a definition to bytes that hold nothing yet. A definition that was read comes back as it was, but for
// what write_mesh_parts.h leaves out. RES_UNKNOWN if there is no level, or if the file would reach 2 GiB.

// As an .lm: skinned bones as BONT, a bare bone tree as RBOT. Attachments that are left out from afar get a mark
// behind their names, once.
MeshResult SaveLodMesh(const MorvexIndexedMeshLODDefinition& definition, std::vector<std::uint8_t>& out);

// As an .im, of the main level.
MeshResult SaveIndexedMesh(const MorvexIndexedMeshDefinition& definition, std::vector<std::uint8_t>& out);

}  // namespace morvex
