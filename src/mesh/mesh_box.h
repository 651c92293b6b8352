#pragma once

#include "engine/vector_math.h"

namespace morvex {

struct MeshLevel;

// The smallest box around a mesh. Of an empty mesh, and before anything is known, both corners are zero.
struct MeshBox {
  Nox::Vector3 max;
  Nox::Vector3 min;
  bool operator==(const MeshBox&) const = default;
};

// Around all positions of a level. Coordinates that are no number are passed over.
MeshBox BoxOf(const MeshLevel& level);
// The square of the distance between the corners.
float DiagonalSquared(const MeshBox& box);

}  // namespace morvex
