#include "mesh/read_bones.h"

#include <algorithm>
#include <array>

// bone of a skin: padded string name, padded string parent, 3 f32 position, 9 f32 rotation
// group:          u32 part, u32 vertices, vertices x (u32 vertex, f32 weight, 3 f32 offset)
//
// ATCH, version 100: u32 count, count x (padded string name, 9 f32 rotation, 3 f32 position)
//
// BONE, versions 1, 20, 50, 100, 102, which are alike: padded string name, 3 f32 position, 4 f32 orientation,
//   u32 children, children x BONE
namespace morvex {
namespace {

constexpr std::array<std::uint32_t, 5> kBoneVersions = {1, 20, 50, 100, 102};

// The fields in front of the children, and their number.
bool ReadBone(MeshInput& in, Skeleton::Bone& bone, std::uint32_t& children) {
  MeshInput::Chunk chunk;
  if (!in.Open(MeshFormat::kBone, kBoneVersions.front(), kBoneVersions.back(), chunk)) return false;
  if (!std::binary_search(kBoneVersions.begin(), kBoneVersions.end(), chunk.version))
    return in.Fail(RES_FILE_VERSION_ERROR);
  bone.name = Nox::PString(in.Text());
  bone.position = in.Vec3();
  bone.orientation = in.Quat();
  bone.rotation = Nox::ToMatrix(bone.orientation);
  children = in.U32();
  return in.Ok();
}

}  // namespace

MeshInfluence ReadInfluence(MeshInput& in) {
  MeshInfluence influence;
  influence.name = Nox::PString(in.Text());
  influence.parent = Nox::PString(in.Text());
  influence.position = in.Vec3();
  influence.rotation = in.Mat3();
  return influence;
}

std::vector<VertexGroup> ReadGroups(MeshInput& in) {
  std::vector<VertexGroup> groups;
  const std::uint32_t count = in.U32();
  for (std::uint32_t i = 0; i < count && in.Ok(); ++i) {
    VertexGroup group;
    group.part = in.U32();
    if (in.Array(group.vertices, in.U32()) && !group.vertices.empty()) groups.push_back(std::move(group));
  }
  return groups;
}

bool ReadAttachments(MeshInput& in, std::vector<MeshAttachment>& attachments) {
  MeshInput::Chunk chunk;
  if (!in.Open(MeshFormat::kAttachments, chunk)) return false;
  const std::uint32_t count = in.U32();
  for (std::uint32_t i = 0; i < count && in.Ok(); ++i) {
    MeshAttachment& attachment = attachments.emplace_back();
    attachment.name = Nox::PString(in.Text());
    attachment.rotation = in.Mat3();
    attachment.position = in.Vec3();
  }
  return in.Ok();
}

// Bones may be nested as deep as the file is long.
bool ReadBoneTree(MeshInput& in, Skeleton& skeleton) {
  struct Open {
    std::uint32_t bone;
    std::uint32_t childrenLeft;
  };
  std::vector<Open> open;
  std::uint32_t parent = Skeleton::kNone;
  do {
    Skeleton::Bone bone;
    std::uint32_t children = 0;
    if (!ReadBone(in, bone, children)) return false;
    bone.parent = parent;
    open.push_back({skeleton.Add(bone), children});
    while (!open.empty() && open.back().childrenLeft == 0)
      open.pop_back();
    if (!open.empty()) {
      --open.back().childrenLeft;
      parent = open.back().bone;
    }
  } while (!open.empty());
  return true;
}

}  // namespace morvex
