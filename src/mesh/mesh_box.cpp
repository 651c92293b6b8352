#include "mesh/mesh_box.h"

#include <cstring>
#include <limits>

#include "mesh/indexed_mesh_definition.h"

namespace morvex {
namespace {

constexpr float kLargest = std::numeric_limits<float>::max();
constexpr MeshBox kNothing = {{-kLargest, -kLargest, -kLargest}, {kLargest, kLargest, kLargest}};

// A comparison with what is no number is false and keeps what is known.
void Grow(float& max, float& min, float value) {
  max = value > max ? value : max;
  min = value < min ? value : min;
}

// The box stays in registers for the length of a chunk.
MeshBox Grown(MeshBox box, const Nox::ConstStream& positions, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    Nox::Vector3 at;
    std::memcpy(&at, positions.At(i), sizeof at);
    Grow(box.max.x, box.min.x, at.x);
    Grow(box.max.y, box.min.y, at.y);
    Grow(box.max.z, box.min.z, at.z);
  }
  return box;
}

}  // namespace

MeshBox BoxOf(const MeshLevel& level) {
  if (level.VertexTotal() == 0) return {};
  MeshBox box = kNothing;
  for (const MeshPart& part : level.parts) {
    const Nox::GeometryChunk& chunk = *part.chunk;
    const Nox::ConstStream positions = chunk.GetStream(Nox::StreamId::kPosition);
    if (positions) box = Grown(box, positions, chunk.Size().vertices);
  }
  return box;
}

float DiagonalSquared(const MeshBox& box) {
  const float x = box.max.x - box.min.x;
  const float y = box.max.y - box.min.y;
  const float z = box.max.z - box.min.z;
  return x * x + y * y + z * z;
}

}  // namespace morvex
