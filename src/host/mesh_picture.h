#pragma once

#include <string>

namespace morvex {
struct MeshLevel;
}

namespace morvex::host {

enum class PictureStyle { kShaded, kWire };

// A level of a mesh as an SVG image, seen from the front, the right and above; the farthest triangles are drawn first.
// Triangles whose corners aren't there, aren't numbers or lie out of the world are left out. Of a very large mesh the
// smallest triangles in the picture are left out, too.
std::string DrawMesh(const MeshLevel& level, PictureStyle style);

}  // namespace morvex::host
