#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "mesh/indexed_mesh_definition.h"
#include "mesh/mesh_output.h"

// The chunks that .im and .lm share. All are written in their newest versions, which both kinds of file read
// alike. What those can't hold is left out: vertex colours, and texture sets but the first.
namespace morvex {

// Sizes within a mesh file are signed here and there.
inline constexpr std::size_t kMaxMeshFile = 0x7FFFFFFF;

// Writes the materials of one definition.
class MaterialWriter {
 public:
  explicit MaterialWriter(const MorvexIndexedMeshDefinition& definition);

  // With the name that the file had, and textures named without their folder.
  void Write(MeshOutput& out, const Nox::Material& material) const;

 private:
  std::vector<const Nox::TextureDefinition*> TexturesOf(const Nox::Material& material) const;

  const std::string& prefix_;
  std::unordered_map<const Nox::Material*, std::vector<const Nox::TextureDefinition*>> pending_;
};

void WriteGeometry(MeshOutput& out, const MeshPart& part);
// Nothing for a chunk without faces, or without neighbours.
void WriteFaceNeighbours(MeshOutput& out, const Nox::GeometryChunk& chunk);
void WriteAttachments(MeshOutput& out, const std::vector<MeshAttachment>& attachments);
void WriteInfluence(MeshOutput& out, const MeshInfluence& influence);
// The groups of one bone.
void WriteGroups(MeshOutput& out, const std::vector<VertexGroup>& groups);
// Of each influence, none where the level has no bindings for it.
const std::vector<VertexGroup>& GroupsOf(const MeshLevel& level, std::size_t influence);

// The size around all chunks and the tag of the kind of file; gives the mark for the end.
[[nodiscard]] std::size_t BeginWrapper(MeshOutput& out, MeshFormat::Tag kind);

}  // namespace morvex
