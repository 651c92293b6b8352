#pragma once

#include "mesh/lod_mesh_definition.h"

namespace morvex {

// Lists the attachments that are left out from afar: those that other meshes hang on, which have "a." somewhere
// in their names.
void FillCullAttachments(MorvexIndexedMeshLODDefinition& definition);

}  // namespace morvex
