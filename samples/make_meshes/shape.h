#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/vector_math.h"

namespace samples {

using Nox::Vector3;

struct Vertex {
  Vector3 position;
  Vector3 normal;
  float u = 0, v = 0;
};

enum class Axis { kX, kY, kZ };

// A surface of triangles, put together from simple solids. Lengths are metres, x points right, y ahead, z up;
// faces run counter-clockwise as seen from outside. What is computed is rounded, so that the same shape is
// made of the same bytes on every machine.
class Shape {
 public:
  // A texture covers this many metres before it repeats.
  explicit Shape(float textureSize = 1) : textureSize_(textureSize) {}

  Shape& Quad(Vector3 a, Vector3 b, Vector3 c, Vector3 d) { return Flat({a, b, c, d}); }
  Shape& Triangle(Vector3 a, Vector3 b, Vector3 c) { return Flat({a, b, c}); }
  // `low` is the corner at the left, at the back and below.
  Shape& Box(Vector3 low, Vector3 high);
  // A roof or a heap: slopes to the left and the right of a ridge along y, and gables at its ends.
  Shape& Gable(Vector3 low, Vector3 high);
  // Round about an axis from `start` on; a radius of 0 at the end makes a tip.
  Shape& Cone(Axis axis, Vector3 start, float length, float radius, float endRadius, int sides = 16);
  Shape& Cylinder(Axis axis, Vector3 start, float length, float radius, int sides = 16) {
    return Cone(axis, start, length, radius, radius, sides);
  }
  // The inside of an upright pipe.
  Shape& Pit(Vector3 floor, float depth, float radius, int sides = 32);
  Shape& Add(const Shape& other);
  // Turns all there is about an axis through a point.
  Shape& Turn(Axis axis, Vector3 centre, float degrees);

  const std::vector<Vertex>& Vertices() const { return vertices_; }
  const std::vector<std::uint16_t>& Indices() const { return indices_; }

 private:
  Shape& Flat(const std::vector<Vector3>& points);
  void AddVertex(const Vertex& vertex);
  void AddTriangle(std::size_t a, std::size_t b, std::size_t c);
  void AddFace(const std::vector<Vertex>& corners);
  void AddDisc(Axis axis, Vector3 centre, float radius, int sides, bool facesUp);

  float textureSize_;
  std::vector<Vertex> vertices_;
  std::vector<std::uint16_t> indices_;
};

}  // namespace samples
