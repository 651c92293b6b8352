#pragma once

#include <vector>

#include "mesh/indexed_mesh_definition.h"

namespace morvex {

// Stores which bones move the vertices of a level, and how far, in the streams of its hardware-skinned chunks.
// A bone is meant by the number of the first influence of its name. What a binding says of parts and vertices
// that aren't there is passed over, and so is what a vertex has no place for.
void BindSkin(MeshLevel& level, const std::vector<MeshInfluence>& influences);

}  // namespace morvex
