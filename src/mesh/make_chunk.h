#pragma once

#include <cstdint>
#include <vector>

#include "engine/geometry_chunk.h"
#include "engine/material.h"
#include "engine/reference.h"
#include "mesh/mesh_load.h"
#include "mesh/vertex_records.h"

namespace morvex {

struct MeshLevel;

inline constexpr std::uint32_t kVectorBytes = 3 * sizeof(float);
inline constexpr std::uint32_t kTextureBytes = 2 * sizeof(float);
inline constexpr std::uint32_t kColourBytes = 4;

// What a file tells of a chunk before its arrays.
struct GeometryHeader {
  Nox::GeometryChunkSize size;
  float value = 0;
  std::uint32_t textureSets = 1;
  std::uint32_t weights = 0;
  bool colours = false;
  bool axis = false;

  // A vertex as files hold it: the position, then the coordinates of each texture set.
  std::uint64_t VertexBytes() const { return kVectorBytes + std::uint64_t{kTextureBytes} * textureSets; }
  // Of the sets that a chunk can hold.
  std::vector<RecordItem> VertexLayout() const;
};

// Whether the bones of a level are moved by the display: it can, the level keeps within its limits, and the
// settings don't forbid it.
bool IsHardwareSkinned(const MeshLevel& level, const MeshLoadContext& context);

// A chunk of the material's, to be filled: its colours are the display's, its vertices bound to no bone. Null if
// there is no memory.
Nox::Ref<Nox::GeometryChunk> MakeChunk(const GeometryHeader& header, const MeshLoadContext& context,
                                       bool hardwareSkinned, const Nox::Material& material);

}  // namespace morvex
