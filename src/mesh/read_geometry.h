#pragma once

#include <cstdint>

#include "mesh/mesh_input.h"
#include "mesh/mesh_load.h"

namespace morvex {

struct MeshPart;

// The versions of a geometry chunk from which, and below which, a field is there.
struct VersionRange {
  std::uint32_t first;
  std::uint32_t end;
  bool Holds(std::uint32_t version) const { return version >= first && version < end; }
};

// In what the geometry of an .im differs from that of an .lm.
struct GeometryRules {
  VersionRange name;
  VersionRange textureSets;
  VersionRange colours;
  bool skipsRest;  // bytes left at the chunk's end are passed over; otherwise they are an error
};
extern const GeometryRules kIndexedMeshGeometry;
extern const GeometryRules kLodMeshGeometry;

// Reads a geometry chunk into a new chunk made by the part's material, and its name into the part. False if
// the input failed.
bool ReadGeometry(MeshInput& in, const GeometryRules& rules, const MeshLoadContext& context,
                  bool hardwareSkinned, MeshPart& part);

// Reads the neighbours of the faces of the part's chunk.
bool ReadFaceNeighbours(MeshInput& in, MeshPart& part);

}  // namespace morvex
