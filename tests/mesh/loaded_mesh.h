#pragma once

#include <gtest/gtest.h>

#include <cstring>
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
#include "mesh/read_indexed_mesh.h"
#include "mesh/read_lod_mesh.h"
#include "mesh/write_mesh.h"

namespace morvex {

// The context of a mesh "trains/loco/body.im" of the owner "pack", with the engine's own materials.
inline MeshLoadContext TestContext() {
  static const Nox::MaterialManager kManager;
  MeshLoadContext context;
  context.materials = &kManager;
  context.ownerName = "pack";
  context.resourceName = "trains/loco/body.im";
  return context;
}

// A block of exactly this size, so that a sanitizer sees a step past its end.
inline std::vector<std::uint8_t> ExactBytes(std::string_view text) {
  std::vector<std::uint8_t> bytes(text.begin(), text.end());
  bytes.shrink_to_fit();
  return bytes;
}

// Without success the definition is null.
template <typename Definition>
struct LoadOf {
  template <typename Read>
  explicit LoadOf(const Read& read) : mesh(std::make_unique<Definition>()), result(read(*mesh)) {
    if (result != RES_SUCCESS) mesh.reset();
  }
  std::unique_ptr<Definition> mesh;
  MeshResult result;
};
using LoadedIm = LoadOf<MorvexIndexedMeshDefinition>;
using LoadedLm = LoadOf<MorvexIndexedMeshLODDefinition>;

inline LoadedIm LoadIm(std::string_view file, const MeshLoadContext& context = TestContext()) {
  return LoadedIm(
      [&](auto& mesh) { return ReadIndexedMesh(mesh, ExactBytes(file), "a/b\\body.im", context); });
}
inline LoadedIm LoadImText(std::string_view text, const MeshLoadContext& context = TestContext()) {
  return LoadedIm(
      [&](auto& mesh) { return ReadIndexedMeshText(mesh, ExactBytes(text), "body.imtxt", context); });
}
inline LoadedLm LoadLm(std::string_view file, const MeshLoadContext& context = TestContext()) {
  return LoadedLm([&](auto& mesh) { return ReadLodMesh(mesh, ExactBytes(file), "body.lm", context); });
}

// The files that are made of meshes.
inline std::string SavedIm(const MorvexIndexedMeshDefinition& mesh) {
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(SaveIndexedMesh(mesh, bytes), RES_SUCCESS);
  return std::string(bytes.begin(), bytes.end());
}
inline std::string SavedLm(const MorvexIndexedMeshLODDefinition& mesh) {
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(SaveLodMesh(mesh, bytes), RES_SUCCESS);
  return std::string(bytes.begin(), bytes.end());
}

// Files by name, and which of them were asked for.
class FilesInMemory : public MeshFileSource {
 public:
  explicit FilesInMemory(std::map<std::string, std::string> files) : files_(std::move(files)) {}
  std::optional<Nox::OwnedBytes> ReadMeshFile(std::string_view name) override {
    const auto file = files_.find(asked.emplace_back(name));
    if (file == files_.end()) return std::nullopt;
    return Nox::OwnedBytes::Adopt(ExactBytes(file->second));
  }

  std::vector<std::string> asked;

 private:
  std::map<std::string, std::string> files_;
};
inline LoadedLm LoadLmText(std::string_view text, MeshFileSource& files) {
  return LoadedLm([&](auto& mesh) {
    return ReadLodMeshText(mesh, ExactBytes(text), "body.lm.txt", TestContext(), files);
  });
}

// The tree of bones as "root(arm(hand) leg)". Each bone stands behind its parent and before its next sibling, so
// only the depths are needed.
inline std::string BoneTreeText(const Skeleton& skeleton) {
  std::string text;
  std::vector<std::size_t> depths(skeleton.Size());
  std::size_t open = 0;
  for (const std::uint32_t number : skeleton.DepthFirst()) {
    const Skeleton::Bone& bone = skeleton.At(number);
    const std::size_t depth = number == skeleton.Root() ? 0 : depths[bone.parent] + 1;
    depths[number] = depth;
    if (depth > open) {
      text += '(';
    } else if (!text.empty()) {
      text += std::string(open - depth, ')') + ' ';
    }
    open = depth;
    text += bone.name.View();
  }
  return text + std::string(open, ')');
}

// The floats of one vertex of a stream, or its bytes; empty if there is no such stream.
inline std::vector<float> FloatsAt(const Nox::GeometryChunk& chunk, Nox::StreamId id, std::size_t vertex) {
  const Nox::ConstStream stream = chunk.GetStream(id);
  std::vector<float> floats(stream.bytes / sizeof(float));
  if (stream) std::memcpy(floats.data(), stream.At(vertex), stream.bytes);
  return floats;
}
inline std::vector<int> BytesAt(const Nox::GeometryChunk& chunk, Nox::StreamId id, std::size_t vertex) {
  const Nox::ConstStream stream = chunk.GetStream(id);
  if (!stream) return {};
  return std::vector<int>(stream.At(vertex), stream.At(vertex) + stream.bytes);
}

}  // namespace morvex
