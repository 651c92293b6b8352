#include "samples/make_meshes/model.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <numbers>
#include <stdexcept>

#include "engine/geometry_chunk.h"
#include "engine/material_manager.h"
#include "mesh/lod_mesh_definition.h"
#include "mesh/mesh_output.h"
#include "mesh/write_mesh.h"

namespace samples {
namespace {

namespace MeshFormat = morvex::MeshFormat;

// The levels change when the model covers these shares of the view's height.
constexpr float kFarThreshold = 0.05F;
constexpr float kNearThreshold = 1.0F;

constexpr Nox::Colour kGloss = {0.5F, 0.5F, 0.5F, 1};

Nox::Colour Dimmed(Nox::Colour colour, float share) {
  return {colour.r * share, colour.g * share, colour.b * share, 1};
}

// Ambient, diffuse, specular and emitted light.
Nox::DisplayMaterial DisplayOf(const Surface& surface) {
  Nox::DisplayMaterial display;
  display.colours = {surface.colour, surface.colour,
                     surface.shine > MeshFormat::kMinPower ? kGloss : Nox::Colour(),
                     Dimmed(surface.colour, surface.glow)};
  display.power = surface.shine;
  return display;
}

template <typename T>
void Set(Nox::GeometryChunk& chunk, Nox::StreamId id, std::size_t vertex, const T& value) {
  const Nox::Stream stream = chunk.GetStream(id);
  if (stream) std::memcpy(stream.At(vertex), &value, sizeof value);
}

Nox::Ref<Nox::GeometryChunk> ChunkOf(const Part& part, const Nox::Material& material) {
  const std::vector<Vertex>& vertices = part.shape.Vertices();
  Nox::GeometryChunkSize size;
  size.vertices = static_cast<std::uint32_t>(vertices.size());
  size.indices = static_cast<std::uint32_t>(part.shape.Indices().size());
  size.faces = size.indices / 3;
  Nox::StandardChunkHint hint;
  hint.skinned = hint.softwareSkinned = !part.bone.empty();
  hint.weightCount = hint.skinned ? 1 : 0;
  Nox::Ref<Nox::GeometryChunk> chunk = material.CreateGeometryChunk(size, hint);
  if (chunk == nullptr) throw std::runtime_error("no memory for a chunk");
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    Set(*chunk, Nox::StreamId::kPosition, i, vertices[i].position);
    Set(*chunk, Nox::StreamId::kNormal, i, vertices[i].normal);
    Set(*chunk, Nox::TextureStream(0), i, std::array<float, 2>{vertices[i].u, vertices[i].v});
  }
  std::copy(part.shape.Indices().begin(), part.shape.Indices().end(), chunk->GetIndexArray().begin());
  return chunk;
}

// What a definition is made of, level by level.
class Assembly {
 public:
  explicit Assembly(morvex::MorvexIndexedMeshDefinition& mesh) : mesh_(mesh) {}

  void AddPoints(const std::vector<Point>& points) {
    for (const Point& point : points) {
      const double turn = point.heading * std::numbers::pi / 180;
      const auto c = static_cast<float>(std::round(std::cos(turn) * 4096) / 4096);
      const auto s = static_cast<float>(std::round(std::sin(turn) * 4096) / 4096);
      const Nox::Matrix3 rotation = {{c, -s, 0, s, c, 0, 0, 0, 1}};
      mesh_.attachments.push_back({Nox::PString(point.name), rotation, point.position});
    }
  }

  // Bones that move something are told with the skin, others as a bare tree.
  void AddBones(const Model& model) {
    bool isSkinned = false;
    for (const Part& part : model.parts)
      isSkinned |= !part.bone.empty();
    for (const Bone& bone : model.bones) {
      const Nox::PString name(bone.name), parent(bone.parent);
      if (isSkinned) mesh_.influences.push_back({name, parent, bone.position, {}});
      const std::uint32_t above = mesh_.skeleton.Find(parent);
      mesh_.skeleton.Add({name, bone.position, {}, {}, above});
    }
  }

  void AddLevel(const Model& model) {
    morvex::MeshLevel& level = morvex::AddLevel(mesh_);
    level.bindings.resize(mesh_.influences.size());
    for (const Part& part : model.parts)
      AddPart(level, part);
    level.maxInfluencesPerVertex = level.maxMatricesPerChunk = mesh_.influences.empty() ? 0 : 1;
  }

 private:
  void AddPart(morvex::MeshLevel& level, const Part& part) {
    const Nox::Ref<Nox::Material> material = MaterialOf(part.surface);
    Bind(level, part);
    level.parts.push_back({ChunkOf(part, *material), material, {}});
  }

  // Parts of one surface share the material.
  Nox::Ref<Nox::Material> MaterialOf(const Surface& surface) {
    Nox::Ref<Nox::Material>& material = materials_[surface.material];
    if (material != nullptr) return material;
    material = Nox::MakeNullMaterial(surface.material);  // of whatever type
    material->SetDisplayMaterialProperties(DisplayOf(surface));
    for (const Nox::TextureDefinition& texture : surface.textures)
      mesh_.pendingTextures.push_back({material, texture});
    return material;
  }

  // The offsets of a bone's vertices are counted from its joint.
  void Bind(morvex::MeshLevel& level, const Part& part) {
    const Nox::PString bone(part.bone);
    for (std::size_t i = 0; i < mesh_.influences.size(); ++i) {
      const morvex::MeshInfluence& influence = mesh_.influences[i];
      if (influence.name != bone) continue;
      morvex::VertexGroup group;
      group.part = static_cast<std::uint32_t>(level.parts.size());
      for (const Vertex& vertex : part.shape.Vertices()) {
        const auto number = static_cast<std::uint32_t>(group.vertices.size());
        const Vector3 at = vertex.position, joint = influence.position;
        group.vertices.push_back({number, 1, {at.x - joint.x, at.y - joint.y, at.z - joint.z}});
      }
      level.bindings[i].push_back(std::move(group));
      return;
    }
    if (!part.bone.empty()) throw std::runtime_error("no bone " + part.bone);
  }

  morvex::MorvexIndexedMeshDefinition& mesh_;
  std::map<std::string, Nox::Ref<Nox::Material>> materials_;
};

void Check(morvex::MeshResult result) {
  if (result != morvex::RES_SUCCESS) throw std::runtime_error(std::string(morvex::MeshResultMessage(result)));
}

}  // namespace

Surface Plain(std::string_view name, Nox::Colour colour) {
  return {std::string(name) + ".m.notex", colour};
}

Surface Textured(std::string_view name, std::string_view texture) {
  return {std::string(name) + ".m.onetex", {1, 1, 1, 1}, {{0, std::string(texture), 1}}};
}

Bytes IndexedMesh(const Model& model) {
  morvex::MorvexIndexedMeshDefinition mesh;
  Assembly assembly(mesh);
  assembly.AddPoints(model.points);
  assembly.AddBones(model);
  assembly.AddLevel(model);
  Bytes bytes;
  Check(morvex::SaveIndexedMesh(mesh, bytes));
  return bytes;
}

Bytes LodMesh(const Model& far, const Model& near) {
  morvex::MorvexIndexedMeshLODDefinition mesh;
  Assembly assembly(mesh);
  assembly.AddPoints(near.points);
  assembly.AddBones(near);
  assembly.AddLevel(far);
  assembly.AddLevel(near);
  mesh.thresholds = {kFarThreshold, kNearThreshold};
  mesh.calcPoint = morvex::CalcPoint::kNear;
  Bytes bytes;
  Check(morvex::SaveLodMesh(mesh, bytes));
  return bytes;
}

Bytes Animation(float seconds, const std::vector<Bone>& bones) {
  Bytes bytes;
  morvex::MeshOutput out(bytes);
  const std::size_t mark = out.Begin(MeshFormat::kWrapper);
  out.Tag("ANIM");
  out.U32(MeshFormat::kVersion);
  out.F32(seconds);
  out.Count(bones.size());
  for (const Bone& bone : bones)
    out.Text(bone.name);
  out.End(mark);
  return bytes;
}

Bytes Text(std::string_view text) {
  return {text.begin(), text.end()};
}

}  // namespace samples
