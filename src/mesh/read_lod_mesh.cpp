#include "mesh/read_lod_mesh.h"

#include <unordered_set>

#include "mesh/cull_attachments.h"
#include "mesh/load_steps.h"
#include "mesh/make_chunk.h"
#include "mesh/mesh_input.h"
#include "mesh/read_bones.h"
#include "mesh/read_geometry.h"
#include "mesh/read_material.h"

// "JIRF", u32 size, "LODM", then chunks of version 100:
//
//   INFO  3 f32 position, 4 f32 orientation, u32 levels, u32 calc point, f32 offset, f32 multiplier,
//         f32 animation cut-off, f32 render cut-off, f32 attachment cut-off,
//         u32 names, names x (u32 level, padded string name, u8 animated)
//   MATT  u32 count, count x MATL: the materials of all levels
//   BONT  or not: u32 count, count x bone: the bones of a skin
//   RBOT  or not: u32 count, count x bone: bones without a skin, parents first
//   ATCH  or not
//   MESH  one for each level: u32 parts, u32 most bones to a vertex, u32 most matrices to a part, f32 threshold
//         (-1: reached by name alone), LODB or not, parts x LCHK
//   LODB  for each bone of BONT: u32 groups, groups x group
//   LCHK  u32, not used; u32 number of the material; GEOM; NINF unless the chunk ends before it
//
// and nothing behind it up to the end that the first size gives. MATT, BONT, RBOT, MESH, LCHK and GEOM must end
// where their sizes say.
namespace morvex {
namespace {

class LodMeshReader {
 public:
  LodMeshReader(MorvexIndexedMeshLODDefinition& definition, std::span<const std::uint8_t> file,
                const MeshLoadContext& context)
      : definition_(definition), context_(context), in_(file) {}

  MeshResult Read();

 private:
  void ReadInfo();
  void ReadMaterials();
  void ReadBones();
  void ReadRootBones();
  void AddRootBone(const MeshInfluence& bone);
  void ReadLevel();
  bool TakeThreshold(float threshold);
  void ReadBindings(MeshLevel& level);
  void ReadPart(MeshLevel& level);

  MorvexIndexedMeshLODDefinition& definition_;
  const MeshLoadContext& context_;
  MeshInput in_;
  std::uint32_t levelCount_ = 0;
  std::unordered_set<std::uint32_t> namedLevels_;
  std::vector<Nox::Ref<Nox::Material>> materials_;
};

MeshResult LodMeshReader::Read() {
  const std::uint64_t end = in_.OpenWrapper(MeshFormat::kLodMesh);
  ReadInfo();
  ReadMaterials();
  if (in_.NextIs(MeshFormat::kBoneTable)) ReadBones();
  if (in_.NextIs(MeshFormat::kRootBones)) ReadRootBones();
  if (in_.NextIs(MeshFormat::kAttachments)) ReadAttachments(in_, definition_.attachments);
  for (std::uint32_t i = 0; i < levelCount_ && in_.Ok(); ++i)
    ReadLevel();
  if (definition_.thresholds.empty()) in_.Fail();
  in_.ExpectPosition(end);
  return in_.Result();
}

void LodMeshReader::ReadInfo() {
  MeshInput::Chunk info;
  if (!in_.Open(MeshFormat::kInfo, info)) return;
  definition_.position = in_.Vec3();
  definition_.orientation = in_.Quat();
  levelCount_ = in_.U32();
  definition_.calcPoint = static_cast<CalcPoint>(in_.U32());
  definition_.offset = in_.F32();
  definition_.multiplier = in_.F32();
  definition_.animationCutOff = in_.F32();
  definition_.renderCutOff = in_.F32();
  definition_.attachmentCutOff = in_.F32();
  const std::uint32_t names = in_.U32();
  for (std::uint32_t i = 0; i < names && in_.Ok(); ++i) {
    NamedMesh& named = definition_.namedMeshes.emplace_back();
    named.level = in_.U32();
    named.name = Nox::PString(in_.Text());
    named.animated = in_.U8() != 0;
    namedLevels_.insert(named.level);
  }
}

void LodMeshReader::ReadMaterials() {
  MeshInput::Chunk table;
  if (!in_.Open(MeshFormat::kMaterialTable, table)) return;
  const std::uint32_t count = in_.U32();
  for (std::uint32_t i = 0; i < count && in_.Ok(); ++i)
    materials_.push_back(ReadMaterial(in_, kLodMeshMaterial, context_, definition_));
  in_.ExpectEnd(table);
}

void LodMeshReader::ReadBones() {
  MeshInput::Chunk table;
  if (!in_.Open(MeshFormat::kBoneTable, table)) return;
  const std::uint32_t count = in_.U32();
  for (std::uint32_t i = 0; i < count && in_.Ok(); ++i)
    definition_.influences.push_back(ReadInfluence(in_));
  in_.ExpectEnd(table);
}

void LodMeshReader::ReadRootBones() {
  MeshInput::Chunk table;
  if (!in_.Open(MeshFormat::kRootBones, table)) return;
  const std::uint32_t count = in_.U32();
  for (std::uint32_t i = 0; i < count && in_.Ok(); ++i)
    AddRootBone(ReadInfluence(in_));
  in_.ExpectEnd(table);
}

// A bone that names no parent, or one that isn't there, hangs under the root.
void LodMeshReader::AddRootBone(const MeshInfluence& bone) {
  Skeleton& skeleton = definition_.skeleton;
  std::uint32_t parent = skeleton.Root();
  if (!bone.parent.Empty()) {
    if (skeleton.Empty()) return (void)in_.Fail();
    if (const std::uint32_t named = skeleton.Find(bone.parent); named != Skeleton::kNone) parent = named;
  }
  skeleton.Add({bone.name, bone.position, bone.rotation, Nox::ToQuaternion(bone.rotation), parent});
}

void LodMeshReader::ReadLevel() {
  MeshInput::Chunk chunk;
  if (!in_.Open(MeshFormat::kLevel, chunk)) return;
  MeshLevel& level = AddLevel(definition_);
  const std::uint32_t parts = in_.U32();
  level.maxInfluencesPerVertex = in_.U32();
  level.maxMatricesPerChunk = in_.U32();
  level.hardwareSkinned = IsHardwareSkinned(level, context_);
  if (!TakeThreshold(in_.F32())) return (void)in_.Fail();
  if (in_.NextIs(MeshFormat::kBindings)) ReadBindings(level);
  for (std::uint32_t i = 0; i < parts && in_.Ok(); ++i)
    ReadPart(level);
  in_.ExpectEnd(chunk);
}

// Of the level that was added last. Levels with thresholds come first, and theirs never fall.
bool LodMeshReader::TakeThreshold(float threshold) {
  const std::size_t number = definition_.levels.size() - 1;
  if (threshold == MeshFormat::kNamedOnly) return namedLevels_.contains(static_cast<std::uint32_t>(number));
  std::vector<float>& thresholds = definition_.thresholds;
  if (!thresholds.empty() && thresholds.back() > threshold) return false;
  thresholds.push_back(threshold);
  return thresholds.size() - 1 == number;
}

void LodMeshReader::ReadBindings(MeshLevel& level) {
  MeshInput::Chunk chunk;
  if (!in_.Open(MeshFormat::kBindings, chunk)) return;
  for (std::size_t i = 0; i < definition_.influences.size() && in_.Ok(); ++i)
    level.bindings.push_back(ReadGroups(in_));
}

void LodMeshReader::ReadPart(MeshLevel& level) {
  MeshInput::Chunk chunk;
  if (!in_.Open(MeshFormat::kLevelPart, chunk)) return;
  in_.U32();
  const std::uint32_t material = in_.U32();
  if (material >= materials_.size()) return (void)in_.Fail();
  MeshPart part;
  part.material = materials_[material];
  if (!ReadGeometry(in_, kLodMeshGeometry, context_, level.hardwareSkinned, part)) return;
  if (in_.Position() < chunk.end && in_.NextIs(MeshFormat::kNeighbours)) ReadFaceNeighbours(in_, part);
  if (in_.ExpectEnd(chunk)) KeepPart(level, std::move(part));
}

}  // namespace

MeshResult ReadLodMesh(MorvexIndexedMeshLODDefinition& definition, std::span<const std::uint8_t> file,
                       std::string_view fileName, const MeshLoadContext& context) {
  BeginMesh(definition, fileName, context);
  if (const MeshResult result = LodMeshReader(definition, file, context).Read()) return result;
  FinishMesh(definition);
  FillCullAttachments(definition);
  return RES_SUCCESS;
}

}  // namespace morvex
