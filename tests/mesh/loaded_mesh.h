#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/material_manager.h"
#include "mesh/lod_mesh_definition.h"
#include "mesh/mesh_load.h"
#include "mesh/mesh_result.h"

namespace morvex {

// The context of a mesh "trains/loco/body.im" of the owner "pack", with the engine's own materials.
MeshLoadContext TestContext();

// A load from a block of exactly the size of the file, so that a sanitizer sees a step past its end. Without
// success the definition is null.
template <typename Definition>
struct LoadOf {
  MeshResult result = RES_SUCCESS;
  std::unique_ptr<Definition> mesh;
};
using LoadedIm = LoadOf<MorvexIndexedMeshDefinition>;
using LoadedLm = LoadOf<MorvexIndexedMeshLODDefinition>;

LoadedIm LoadIm(std::string_view file, const MeshLoadContext& context = TestContext());
LoadedIm LoadImText(std::string_view text, const MeshLoadContext& context = TestContext());
LoadedLm LoadLm(std::string_view file, const MeshLoadContext& context = TestContext());

// Files by name, and which of them were asked for.
class FilesInMemory : public MeshFileSource {
 public:
  explicit FilesInMemory(std::map<std::string, std::string> files) : files_(std::move(files)) {}
  std::optional<Nox::OwnedBytes> ReadMeshFile(std::string_view name) override;

  std::vector<std::string> asked;

 private:
  std::map<std::string, std::string> files_;
};
LoadedLm LoadLmText(std::string_view text, MeshFileSource& files,
                    const MeshLoadContext& context = TestContext());

// All that a definition holds, a line for each thing, but for its box. What is equal reads the same.
std::string Describe(const MorvexIndexedMeshDefinition& mesh);
// With what levels of detail add.
std::string Describe(const MorvexIndexedMeshLODDefinition& mesh);

// The tree of bones as "root(arm(hand) leg)".
std::string BoneTreeText(const Skeleton& skeleton);

// The floats of one vertex of a stream; empty if there is no such stream.
std::vector<float> FloatsAt(const Nox::GeometryChunk& chunk, Nox::StreamId id, std::size_t vertex);
std::vector<int> BytesAt(const Nox::GeometryChunk& chunk, Nox::StreamId id, std::size_t vertex);

std::string AsText(const std::vector<std::uint8_t>& bytes);

}  // namespace morvex
