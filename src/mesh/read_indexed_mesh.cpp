#include "mesh/read_indexed_mesh.h"

#include "mesh/load_steps.h"
#include "mesh/make_chunk.h"
#include "mesh/mesh_input.h"
#include "mesh/read_bones.h"
#include "mesh/read_geometry.h"
#include "mesh/read_material.h"

// "JIRF", u32 size, "IDXM", then
//
//   INFO, versions 100 to 104: 3 f32 position, 4 f32 orientation, u32 parts
//                              from 102 on: u32 most bones to a vertex, u32 most matrices to a part
//                              104: 6 f32, not used
//   CHNK, version 100, one for each part: u32, not used; MATL; GEOM; NINF unless the chunk ends before it
//   INFL, version 100, or SKEL, or neither
//     INFL: u32 bones, bones x (bone, u32 groups, groups x group)
//     SKEL: one BONE
//   ATCH or not
//
// and nothing behind it up to the end that the first size gives. Nobody looks at the sizes of INFO, INFL, MATL,
// NINF and ATCH: they end where their fields end.
namespace morvex {
namespace {

constexpr std::uint32_t kFirstInfoVersion = 100;
constexpr std::uint32_t kLimitsFrom = 102;
constexpr std::uint32_t kLastInfoVersion = 104;
constexpr std::uint32_t kUnusedInfoBytes = 6 * sizeof(float);

class IndexedMeshReader {
 public:
  IndexedMeshReader(MorvexIndexedMeshDefinition& definition, std::span<const std::uint8_t> file,
                    const MeshLoadContext& context)
      : definition_(definition), context_(context), in_(file), level_(AddLevel(definition)) {}

  MeshResult Read() {
    const std::uint64_t end = in_.OpenWrapper(MeshFormat::kIndexedMesh);
    ReadInfo();
    for (std::uint32_t i = 0; i < partCount_ && in_.Ok(); ++i)
      ReadPart();
    if (in_.Position() < end) ReadSkin();
    if (in_.Position() < end && in_.NextIs(MeshFormat::kAttachments))
      ReadAttachments(in_, definition_.attachments);
    in_.ExpectPosition(end);
    return in_.Result();
  }

 private:
  void ReadInfo();
  void ReadPart();
  void ReadSkin();
  void ReadInfluences();

  MorvexIndexedMeshDefinition& definition_;
  const MeshLoadContext& context_;
  MeshInput in_;
  MeshLevel& level_;
  std::uint32_t partCount_ = 0;
};

void IndexedMeshReader::ReadInfo() {
  MeshInput::Chunk info;
  if (!in_.Open(MeshFormat::kInfo, kFirstInfoVersion, kLastInfoVersion, info)) return;
  definition_.position = in_.Vec3();
  definition_.orientation = in_.Quat();
  partCount_ = in_.U32();
  if (info.version >= kLimitsFrom) {
    level_.maxInfluencesPerVertex = in_.U32();
    level_.maxMatricesPerChunk = in_.U32();
  }
  if (info.version == kLastInfoVersion) in_.Bytes(kUnusedInfoBytes);
  level_.hardwareSkinned = IsHardwareSkinned(level_, context_);
}

void IndexedMeshReader::ReadPart() {
  MeshInput::Chunk chunk;
  if (!in_.Open(MeshFormat::kPart, chunk)) return;
  in_.U32();
  MeshPart part;
  const std::size_t texturesBefore = definition_.pendingTextures.size();
  part.material = ReadMaterial(in_, kIndexedMeshMaterial, context_, definition_);
  if (!in_.Ok() || !ReadGeometry(in_, kIndexedMeshGeometry, context_, level_.hardwareSkinned, part)) return;
  if (in_.Position() < chunk.end && in_.NextIs(MeshFormat::kNeighbours)) ReadFaceNeighbours(in_, part);
  if (in_.Ok() && !KeepPart(level_, std::move(part))) definition_.pendingTextures.resize(texturesBefore);
}

// A skin of another version isn't ours to read: it stays where it stands, and so the mesh doesn't end where it
// should.
void IndexedMeshReader::ReadSkin() {
  const MeshInput before = in_;
  const bool hasInfluences = in_.NextIs(MeshFormat::kInfluences);
  MeshInput::Chunk skin;
  if (!in_.Open(hasInfluences ? MeshFormat::kInfluences : MeshFormat::kSkeleton, skin)) {
    in_ = before;
  } else if (hasInfluences) {
    ReadInfluences();
  } else {
    ReadBoneTree(in_, definition_.skeleton);
  }
}

void IndexedMeshReader::ReadInfluences() {
  const std::uint32_t count = in_.U32();
  for (std::uint32_t i = 0; i < count && in_.Ok(); ++i) {
    definition_.influences.push_back(ReadInfluence(in_));
    level_.bindings.push_back(ReadGroups(in_));
  }
}

}  // namespace

MeshResult ReadIndexedMesh(MorvexIndexedMeshDefinition& definition, std::span<const std::uint8_t> file,
                           std::string_view fileName, const MeshLoadContext& context) {
  if (file.empty()) return RES_FILE_OPEN_ERROR;
  BeginMesh(definition, fileName, context);
  if (const MeshResult result = IndexedMeshReader(definition, file, context).Read()) return result;
  FinishMesh(definition);
  return RES_SUCCESS;
}

}  // namespace morvex
