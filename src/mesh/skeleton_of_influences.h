#pragma once

#include <vector>

#include "mesh/indexed_mesh_definition.h"

namespace morvex {

// The tree of the bones of a skin, one for each influence and under its number. The first without a parent is
// the root; the root also becomes the parent, by name too, of all others that name none. Bones whose parent
// isn't there, and one of each circle of parents, hang under the root. Without any root there are no bones.
Skeleton SkeletonOfInfluences(std::vector<MeshInfluence>& influences);

}  // namespace morvex
