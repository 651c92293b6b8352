#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/geometry_chunk.h"
#include "engine/material.h"
#include "engine/pstring.h"
#include "engine/reference.h"
#include "engine/vector_math.h"
#include "mesh/mesh_box.h"
#include "mesh/skeleton.h"

namespace morvex {

// A named point of a mesh, at which other meshes are put.
struct MeshAttachment {
  Nox::PString name;
  Nox::Matrix3 rotation;
  Nox::Vector3 position;
};

// A bone that moves vertices. An empty parent makes it the root.
struct MeshInfluence {
  Nox::PString name;
  Nox::PString parent;
  Nox::Vector3 position;
  Nox::Matrix3 rotation;
};

// How far a bone moves one vertex. Files hold rows of these as they lie here.
struct GroupVertex {
  std::uint32_t vertex = 0;
  float weight = 0;
  Nox::Vector3 offset;  // from the bone
};
static_assert(sizeof(GroupVertex) == 20);

// The vertices of one part that a bone moves.
struct VertexGroup {
  std::uint32_t part = 0;
  std::vector<GroupVertex> vertices;
};

// What is drawn with one material.
struct MeshPart {
  Nox::Ref<Nox::GeometryChunk> chunk;
  Nox::Ref<Nox::Material> material;
  Nox::PString name;
};

// A mesh at one level of detail.
struct MeshLevel {
  std::vector<MeshPart> parts;
  std::vector<std::vector<VertexGroup>> bindings;  // for each influence of the definition, its groups
  std::uint32_t maxInfluencesPerVertex = 0;        // as the file says
  std::uint32_t maxMatricesPerChunk = 0;
  bool hardwareSkinned = false;

  std::uint64_t VertexTotal() const;
  std::uint64_t FaceTotal() const;
};

// A texture that a material is to be given once the mesh has loaded.
struct PendingTexture {
  Nox::Ref<Nox::Material> material;
  Nox::TextureDefinition texture;
};

// What a mesh file holds, read from an .im or an imtxt. Belongs to its resource, which shares it with the
// instances of the mesh; a load that failed leaves one that is good for nothing.
struct MorvexIndexedMeshDefinition {
  virtual ~MorvexIndexedMeshDefinition() = default;

  // The level that stands for the mesh: of those reached by threshold the last. There must be one.
  virtual const MeshLevel& MainLevel() const { return *levels.front(); }

  Nox::PString name;  // of the file, without its folders
  Nox::Vector3 position;
  Nox::Quaternion orientation;
  MeshBox box;
  std::vector<std::shared_ptr<MeshLevel>>
      levels;  // one of a mesh without levels of detail; some may be the same
  std::vector<MeshAttachment> attachments;
  std::vector<MeshInfluence> influences;
  Skeleton skeleton;  // of the influences where there are some; their numbers are those of the bones

  // What stands before the file's own name in the names of all materials, so that two meshes may use one name
  // without sharing a material.
  std::string materialPrefix;
  std::vector<PendingTexture> pendingTextures;
  std::vector<Nox::TextureDefinition> failedTextures;  // those that their material refused
};

// An empty level behind those there are.
MeshLevel& AddLevel(MorvexIndexedMeshDefinition& definition);

}  // namespace morvex
