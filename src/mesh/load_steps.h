#pragma once

#include <cstddef>
#include <string_view>

#include "mesh/indexed_mesh_definition.h"
#include "mesh/mesh_load.h"

namespace morvex {

// Steps that all loads have in common.

// Sets what a definition knows before anything of the file is read.
void BeginMesh(MorvexIndexedMeshDefinition& definition, std::string_view fileName,
               const MeshLoadContext& context);

// Adds a part to a level, unless it has no vertices, faces or indices: then it is dropped, and later parts count
// as if it weren't there. False if it was dropped.
bool KeepPart(MeshLevel& level, MeshPart part);

// Makes what follows from what was read: the skeleton, the skin in the chunks, the box around the main level.
void FinishMesh(MorvexIndexedMeshDefinition& definition);

}  // namespace morvex
