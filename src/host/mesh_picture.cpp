#include "host/mesh_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

#include "engine/format.h"
#include "mesh/indexed_mesh_definition.h"

namespace morvex::host {

namespace {

constexpr size_t kMaxTriangles = 60'000;
constexpr float kSide = 640;
constexpr float kMargin = 24;
constexpr float kYaw = 0.62F;    // radians: how far the viewer stands to the right
constexpr float kPitch = 0.42F;  // and above
constexpr float kAmbient = 0.38F;
// Metres. Nothing that is farther off is meant, and areas of more would be no numbers.
constexpr float kFarthest = 1e12F;

using Nox::Vector3;

Vector3 operator-(const Vector3& a, const Vector3& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
Vector3 Cross(const Vector3& a, const Vector3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
float Dot(const Vector3& a, const Vector3& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

// To the viewer's space: x to the right, y upward, z away.
Vector3 Turn(const Vector3& point) {
  const float across = point.x * std::cos(kYaw) + point.y * std::sin(kYaw);
  const float away = point.y * std::cos(kYaw) - point.x * std::sin(kYaw);
  return {across, point.z * std::cos(kPitch) + away * std::sin(kPitch),
          away * std::cos(kPitch) - point.z * std::sin(kPitch)};
}

struct Triangle {
  std::array<Vector3, 3> corners;  // in the viewer's space
  float depth = 0;
  float area = 0;  // as seen
  Nox::Colour colour;
};

Nox::Colour BaseColour(const MeshPart& part) {
  constexpr float kGrey = 0.74F;
  if (!part.material) return {kGrey, kGrey, kGrey, 1};
  const Nox::Colour colour = part.material->GetDisplayMaterialProperties().colours[1];
  const bool isUsable =
      std::isfinite(colour.r + colour.g + colour.b) && colour.r + colour.g + colour.b > 0.3F;
  return isUsable ? colour : Nox::Colour{kGrey, kGrey, kGrey, 1};
}

std::optional<Vector3> PositionAt(const Nox::ConstStream& positions, uint32_t vertex, uint32_t count) {
  if (vertex >= count) return std::nullopt;
  Vector3 point;
  std::memcpy(&point, positions.At(vertex), sizeof point);
  const float reach = std::abs(point.x) + std::abs(point.y) + std::abs(point.z);
  if (!(reach < kFarthest)) return std::nullopt;
  return Turn(point);
}

void AddPart(const MeshPart& part, std::vector<Triangle>& triangles) {
  if (!part.chunk) return;
  const Nox::GeometryChunk& chunk = *part.chunk;
  const Nox::ConstStream positions = chunk.GetStream(Nox::StreamId::kPosition);
  if (!positions) return;
  const std::span<const uint16_t> indices = chunk.GetIndexArray();
  const Nox::Colour colour = BaseColour(part);
  for (size_t i = 0; i + 2 < indices.size(); i += 3) {
    Triangle triangle;
    triangle.colour = colour;
    bool isWhole = true;
    for (size_t k = 0; k < 3; ++k) {
      const auto corner = PositionAt(positions, indices[i + k], chunk.Size().vertices);
      isWhole = isWhole && corner.has_value();
      if (corner) triangle.corners[k] = *corner;
    }
    if (!isWhole) continue;
    const auto& [a, b, c] = triangle.corners;
    triangle.depth = a.z + b.z + c.z;
    triangle.area = std::abs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y));
    triangles.push_back(triangle);
  }
}

// Light falls from the viewer's left and above; a surface shows the same from both sides.
float BrightnessOf(const Triangle& triangle) {
  constexpr Vector3 kLight = {-0.45F, 0.72F, -0.53F};
  const Vector3 normal =
      Cross(triangle.corners[1] - triangle.corners[0], triangle.corners[2] - triangle.corners[0]);
  const float length = std::sqrt(Dot(normal, normal));
  if (!(length > 0)) return 1;
  // The side that is seen is the one that counts.
  const float facing = normal.z > 0 ? -1.0F : 1.0F;
  const float lit = std::max(0.0F, Dot(normal, kLight) * facing / length);
  return kAmbient + (1 - kAmbient) * lit;
}

unsigned ByteOf(float value) {
  return static_cast<unsigned>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255));
}

// The place of the viewer's plane in the picture.
class Frame {
 public:
  explicit Frame(const std::vector<Triangle>& triangles) {
    if (triangles.empty()) return;
    Vector3 least = triangles[0].corners[0];
    Vector3 most = least;
    for (const Triangle& triangle : triangles) {
      for (const Vector3& corner : triangle.corners) {
        least = {std::min(least.x, corner.x), std::min(least.y, corner.y), 0};
        most = {std::max(most.x, corner.x), std::max(most.y, corner.y), 0};
      }
    }
    const float extent = std::max({most.x - least.x, most.y - least.y, 1e-6F});
    scale_ = (kSide - 2 * kMargin) / extent;
    centreX_ = (least.x + most.x) / 2;
    centreY_ = (least.y + most.y) / 2;
  }

  std::string Points(const Triangle& triangle) const {
    std::string points;
    for (const Vector3& corner : triangle.corners) {
      Nox::AppendFormat(points, "%s%.1f,%.1f", points.empty() ? "" : " ",
                        kSide / 2 + (corner.x - centreX_) * scale_,
                        kSide / 2 - (corner.y - centreY_) * scale_);
    }
    return points;
  }

 private:
  float scale_ = 1;
  float centreX_ = 0;
  float centreY_ = 0;
};

void KeepLargest(std::vector<Triangle>& triangles) {
  if (triangles.size() <= kMaxTriangles) return;
  std::nth_element(triangles.begin(), triangles.begin() + static_cast<ptrdiff_t>(kMaxTriangles),
                   triangles.end(), [](const Triangle& a, const Triangle& b) { return a.area > b.area; });
  triangles.resize(kMaxTriangles);
}

}  // namespace

std::string DrawMesh(const MeshLevel& level, PictureStyle style) {
  std::vector<Triangle> triangles;
  for (const MeshPart& part : level.parts)
    AddPart(part, triangles);
  KeepLargest(triangles);
  std::stable_sort(triangles.begin(), triangles.end(),
                   [](const Triangle& a, const Triangle& b) { return a.depth > b.depth; });
  const Frame frame(triangles);
  std::string svg = Nox::FormatText(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %.0f %.0f\" stroke-linejoin=\"round\">\n"
      "<defs><radialGradient id=\"b\" cy=\".4\"><stop stop-color=\"#fbfcfd\"/><stop offset=\"1\" "
      "stop-color=\"#d9dfe6\"/></radialGradient></defs>\n<rect width=\"100%%\" height=\"100%%\" "
      "fill=\"url(#b)\"/>\n",
      kSide, kSide);
  for (const Triangle& triangle : triangles) {
    const std::string points = frame.Points(triangle);
    if (style == PictureStyle::kWire) {
      svg += "<path fill=\"none\" stroke=\"#2b4c7e\" stroke-width=\".6\" d=\"M" + points + "z\"/>\n";
      continue;
    }
    const float light = BrightnessOf(triangle);
    const Nox::Colour& colour = triangle.colour;
    const std::string fill = Nox::FormatText("#%02x%02x%02x", ByteOf(colour.r * light),
                                             ByteOf(colour.g * light), ByteOf(colour.b * light));
    svg +=
        "<path fill=\"" + fill + "\" stroke=\"" + fill + "\" stroke-width=\".5\" d=\"M" + points + "z\"/>\n";
  }
  return svg + "</svg>\n";
}

}  // namespace morvex::host
