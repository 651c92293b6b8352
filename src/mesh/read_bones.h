#pragma once

#include <vector>

#include "mesh/indexed_mesh_definition.h"
#include "mesh/mesh_input.h"

// The bones and the points of a mesh, and what the bones move. Each function is false, or fails the input,
// where the bytes are wrong.
namespace morvex {

// Name, parent, place and turn of a bone.
MeshInfluence ReadInfluence(MeshInput& in);
// The groups of one bone; those without vertices are dropped.
std::vector<VertexGroup> ReadGroups(MeshInput& in);

bool ReadAttachments(MeshInput& in, std::vector<MeshAttachment>& attachments);
// A tree of nested bone chunks.
bool ReadBoneTree(MeshInput& in, Skeleton& skeleton);

}  // namespace morvex
