#include "samples/make_meshes/shape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace samples {
namespace {

// Far finer than what can be seen, far coarser than what processors disagree about.
constexpr float kGrain = 4096;

float Rounded(double value) {
  const float rounded = static_cast<float>(std::round(value * kGrain)) / kGrain;
  return rounded == 0 ? 0.0F : rounded;  // no negative zeros
}

Vector3 Rounded(Vector3 v) {
  return {Rounded(v.x), Rounded(v.y), Rounded(v.z)};
}

Vector3 operator+(Vector3 a, Vector3 b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Vector3 operator-(Vector3 a, Vector3 b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Vector3 Unit(Vector3 v) {
  const float length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
  return {v.x / length, v.y / length, v.z / length};
}

Vector3 Cross(Vector3 a, Vector3 b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double Radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

// A point given along an axis and around it: `angle` runs from the next axis to the one behind that.
Vector3 Around(Axis axis, float along, double radius, double angle) {
  const float a = static_cast<float>(radius * std::cos(angle));
  const float b = static_cast<float>(radius * std::sin(angle));
  switch (axis) {
    case Axis::kX:
      return {along, a, b};
    case Axis::kY:
      return {b, along, a};
    default:
      return {a, b, along};
  }
}

Vector3 Turned(Vector3 v, Axis axis, double degrees) {
  const double c = std::cos(Radians(degrees)), s = std::sin(Radians(degrees));
  const auto turn = [&](float& a, float& b) {
    const double from = a;
    a = static_cast<float>(c * from - s * b);
    b = static_cast<float>(s * from + c * b);
  };
  switch (axis) {
    case Axis::kX:
      turn(v.y, v.z);
      break;
    case Axis::kY:
      turn(v.z, v.x);
      break;
    default:
      turn(v.x, v.y);
      break;
  }
  return v;
}

// The flat coordinates of a point on a face that looks along `normal`: seen from the side, height stays height.
std::array<float, 2> OnFace(Vector3 point, Vector3 normal) {
  const Vector3 n = {std::abs(normal.x), std::abs(normal.y), std::abs(normal.z)};
  if (n.z >= n.x && n.z >= n.y) return {point.x, point.y};
  return {n.x > n.y ? point.y : point.x, point.z};
}

}  // namespace

void Shape::AddVertex(const Vertex& vertex) {
  vertices_.push_back(
      {Rounded(vertex.position), Rounded(vertex.normal), Rounded(vertex.u), Rounded(vertex.v)});
}

void Shape::AddTriangle(std::size_t a, std::size_t b, std::size_t c) {
  for (const std::size_t corner : {a, b, c})
    indices_.push_back(static_cast<std::uint16_t>(corner));
}

// Flat, with its corners in a row around it.
void Shape::AddFace(const std::vector<Vertex>& corners) {
  const std::size_t first = vertices_.size();
  for (const Vertex& corner : corners)
    AddVertex(corner);
  for (std::size_t i = 2; i < corners.size(); ++i)
    AddTriangle(first, first + i - 1, first + i);
}

Shape& Shape::Flat(const std::vector<Vector3>& points) {
  const Vector3 normal = Unit(Cross(points[1] - points[0], points.back() - points[0]));
  std::vector<Vertex> corners;
  for (const Vector3 point : points) {
    const auto [u, v] = OnFace(point, normal);
    corners.push_back({point, normal, u / textureSize_, -v / textureSize_});
  }
  AddFace(corners);
  return *this;
}

Shape& Shape::Box(Vector3 low, Vector3 high) {
  const auto corner = [&](int x, int y, int z) {
    return Vector3{x != 0 ? high.x : low.x, y != 0 ? high.y : low.y, z != 0 ? high.z : low.z};
  };
  Quad(corner(0, 0, 0), corner(1, 0, 0), corner(1, 0, 1), corner(0, 0, 1));  // back
  Quad(corner(1, 1, 0), corner(0, 1, 0), corner(0, 1, 1), corner(1, 1, 1));  // front
  Quad(corner(0, 1, 0), corner(0, 0, 0), corner(0, 0, 1), corner(0, 1, 1));  // left
  Quad(corner(1, 0, 0), corner(1, 1, 0), corner(1, 1, 1), corner(1, 0, 1));  // right
  Quad(corner(0, 0, 1), corner(1, 0, 1), corner(1, 1, 1), corner(0, 1, 1));  // above
  Quad(corner(0, 1, 0), corner(1, 1, 0), corner(1, 0, 0), corner(0, 0, 0));  // below
  return *this;
}

Shape& Shape::Gable(Vector3 low, Vector3 high) {
  const float middle = (low.x + high.x) / 2;
  const Vector3 backRidge = {middle, low.y, high.z}, frontRidge = {middle, high.y, high.z};
  const Vector3 backLeft = low, backRight = {high.x, low.y, low.z};
  const Vector3 frontLeft = {low.x, high.y, low.z}, frontRight = {high.x, high.y, low.z};
  Quad(backRight, frontRight, frontRidge, backRidge);
  Quad(frontLeft, backLeft, backRidge, frontRidge);
  Quad(frontLeft, frontRight, backRight, backLeft);
  Triangle(backLeft, backRight, backRidge);
  Triangle(frontRight, frontLeft, frontRidge);
  return *this;
}

void Shape::AddDisc(Axis axis, Vector3 centre, float radius, int sides, bool facesUp) {
  std::vector<Vertex> corners;
  for (int i = 0; i < sides; ++i) {
    const double angle = Radians(360.0 * (facesUp ? i : sides - i) / sides);
    Vertex corner;
    corner.position = centre + Around(axis, 0, radius, angle);
    corner.normal = Around(axis, facesUp ? 1.0F : -1.0F, 0, 0);
    corner.u = static_cast<float>(0.5 + 0.5 * std::cos(angle));
    corner.v = static_cast<float>(0.5 - 0.5 * std::sin(angle));
    corners.push_back(corner);
  }
  AddFace(corners);
}

Shape& Shape::Cone(Axis axis, Vector3 start, float length, float radius, float endRadius, int sides) {
  const Vector3 end = start + Around(axis, length, 0, 0);
  // The texture goes round a whole number of times, so that it meets itself.
  const double around = 2 * std::numbers::pi * std::max(radius, endRadius) / textureSize_;
  const double repeats = std::max(1.0, std::round(around));
  const std::size_t first = vertices_.size();
  for (int i = 0; i <= sides; ++i) {
    const double turn = static_cast<double>(i) / sides;
    const Vector3 normal = Unit(Around(axis, radius - endRadius, length, Radians(360 * turn)));
    const auto u = static_cast<float>(turn * repeats);
    AddVertex({start + Around(axis, 0, radius, Radians(360 * turn)), normal, u, 0});
    AddVertex({end + Around(axis, 0, endRadius, Radians(360 * turn)), normal, u, -length / textureSize_});
  }
  for (int i = 0; i < sides; ++i) {
    const std::size_t corner = first + 2 * static_cast<std::size_t>(i);
    AddTriangle(corner, corner + 2, corner + 3);
    if (endRadius > 0) AddTriangle(corner, corner + 3, corner + 1);
  }
  AddDisc(axis, start, radius, sides, false);
  if (endRadius > 0) AddDisc(axis, end, endRadius, sides, true);
  return *this;
}

Shape& Shape::Pit(Vector3 floor, float depth, float radius, int sides) {
  for (int i = 0; i < sides; ++i) {
    const double from = Radians(360.0 * i / sides), to = Radians(360.0 * (i + 1) / sides);
    const Vector3 rim = {floor.x, floor.y, floor.z + depth};
    Quad(floor + Around(Axis::kZ, 0, radius, to), floor + Around(Axis::kZ, 0, radius, from),
         rim + Around(Axis::kZ, 0, radius, from), rim + Around(Axis::kZ, 0, radius, to));
  }
  AddDisc(Axis::kZ, floor, radius, sides, true);
  return *this;
}

Shape& Shape::Add(const Shape& other) {
  const std::size_t first = vertices_.size();
  vertices_.insert(vertices_.end(), other.vertices_.begin(), other.vertices_.end());
  for (const std::uint16_t index : other.indices_)
    indices_.push_back(static_cast<std::uint16_t>(first + index));
  return *this;
}

Shape& Shape::Turn(Axis axis, Vector3 centre, float degrees) {
  for (Vertex& vertex : vertices_) {
    vertex.position = Rounded(centre + Turned(vertex.position - centre, axis, degrees));
    vertex.normal = Rounded(Turned(vertex.normal, axis, degrees));
  }
  return *this;
}

}  // namespace samples
