#include <unordered_map>
#include <unordered_set>

#include "mesh/write_mesh.h"
#include "mesh/write_mesh_parts.h"

namespace morvex {
namespace {

// The chunks, in the order and the layouts that read_lod_mesh.cpp draws.
class LodMeshWriter {
 public:
  LodMeshWriter(const MorvexIndexedMeshLODDefinition& definition, std::vector<std::uint8_t>& out)
      : definition_(definition), out_(out) {}

  void Write();

 private:
  void WriteInfo();
  void WriteMaterials();
  void WriteBones();
  void WriteRootBones();
  void WriteMarkedAttachments();
  void WriteLevel(std::size_t number);
  void WriteBindings(const MeshLevel& level);
  void WritePart(std::size_t number, const MeshPart& part);

  const MorvexIndexedMeshLODDefinition& definition_;
  MeshOutput out_;
  std::unordered_map<const Nox::Material*, std::uint32_t> materialNumbers_;
};

void LodMeshWriter::Write() {
  const std::size_t mark = BeginWrapper(out_, MeshFormat::kLodMesh);
  WriteInfo();
  WriteMaterials();
  if (!definition_.influences.empty()) {
    WriteBones();
  } else if (!definition_.skeleton.Empty()) {
    WriteRootBones();
  }
  if (!definition_.attachments.empty()) WriteMarkedAttachments();
  // Levels may be shared, and their copies in the file larger than any memory.
  for (std::size_t i = 0; i < definition_.levels.size() && out_.Size() <= kMaxMeshFile; ++i)
    WriteLevel(i);
  out_.End(mark);
}

void LodMeshWriter::WriteInfo() {
  const std::size_t mark = out_.Begin(MeshFormat::kInfo, MeshFormat::kVersion);
  out_.Words(definition_.position);
  out_.Words(definition_.orientation);
  out_.Count(definition_.levels.size());
  out_.U32(static_cast<std::uint32_t>(definition_.calcPoint));
  out_.F32(definition_.offset);
  out_.F32(definition_.multiplier);
  out_.F32(definition_.animationCutOff);
  out_.F32(definition_.renderCutOff);
  out_.F32(definition_.attachmentCutOff);
  out_.Count(definition_.namedMeshes.size());
  for (const NamedMesh& named : definition_.namedMeshes) {
    out_.U32(named.level);
    out_.Text(named.name);
    out_.U8(named.animated ? 1 : 0);
  }
  out_.End(mark);
}

// Each once, in the order in which the parts need them.
void LodMeshWriter::WriteMaterials() {
  const std::size_t mark = out_.Begin(MeshFormat::kMaterialTable, MeshFormat::kVersion);
  std::vector<const Nox::Material*> materials;
  for (const auto& level : definition_.levels) {
    for (const MeshPart& part : level->parts) {
      const Nox::Material* const material = part.material.Get();
      if (materialNumbers_.try_emplace(material, static_cast<std::uint32_t>(materials.size())).second)
        materials.push_back(material);
    }
  }
  out_.Count(materials.size());
  const MaterialWriter writer(definition_);
  for (const Nox::Material* material : materials)
    writer.Write(out_, *material);
  out_.End(mark);
}

void LodMeshWriter::WriteBones() {
  const std::size_t mark = out_.Begin(MeshFormat::kBoneTable, MeshFormat::kVersion);
  out_.Count(definition_.influences.size());
  for (const MeshInfluence& influence : definition_.influences)
    WriteInfluence(out_, influence);
  out_.End(mark);
}

void LodMeshWriter::WriteRootBones() {
  const std::size_t mark = out_.Begin(MeshFormat::kRootBones, MeshFormat::kVersion);
  const Skeleton& skeleton = definition_.skeleton;
  out_.Count(skeleton.Size());
  for (const std::uint32_t number : skeleton.DepthFirst()) {
    const Skeleton::Bone& bone = skeleton.At(number);
    const Nox::PString parent = number == skeleton.Root() ? Nox::PString() : skeleton.At(bone.parent).name;
    WriteInfluence(out_, {bone.name, parent, bone.position, bone.rotation});
  }
  out_.End(mark);
}

void LodMeshWriter::WriteMarkedAttachments() {
  const std::unordered_set<Nox::PString> culled(definition_.cullAttachments.begin(),
                                                definition_.cullAttachments.end());
  std::vector<MeshAttachment> attachments = definition_.attachments;
  for (MeshAttachment& attachment : attachments) {
    if (culled.contains(attachment.name) && !attachment.name.View().ends_with(MeshFormat::kCullMark))
      attachment.name = Nox::PString(attachment.name.Text().append(MeshFormat::kCullMark));
  }
  WriteAttachments(out_, attachments);
}

void LodMeshWriter::WriteLevel(std::size_t number) {
  const MeshLevel& level = *definition_.levels[number];
  const std::size_t mark = out_.Begin(MeshFormat::kLevel, MeshFormat::kVersion);
  out_.Count(level.parts.size());
  out_.U32(level.maxInfluencesPerVertex);
  out_.U32(level.maxMatricesPerChunk);
  const auto& thresholds = definition_.thresholds;
  out_.F32(number < thresholds.size() ? thresholds[number] : MeshFormat::kNamedOnly);
  if (!definition_.influences.empty()) WriteBindings(level);
  for (std::size_t i = 0; i < level.parts.size(); ++i)
    WritePart(i, level.parts[i]);
  out_.End(mark);
}

void LodMeshWriter::WriteBindings(const MeshLevel& level) {
  const std::size_t mark = out_.Begin(MeshFormat::kBindings, MeshFormat::kVersion);
  for (std::size_t i = 0; i < definition_.influences.size(); ++i)
    WriteGroups(out_, GroupsOf(level, i));
  out_.End(mark);
}

void LodMeshWriter::WritePart(std::size_t number, const MeshPart& part) {
  const std::size_t mark = out_.Begin(MeshFormat::kLevelPart, MeshFormat::kVersion);
  out_.Count(number);
  out_.U32(materialNumbers_.at(part.material.Get()));
  WriteGeometry(out_, part);
  WriteFaceNeighbours(out_, *part.chunk);
  out_.End(mark);
}

}  // namespace

MeshResult SaveLodMesh(const MorvexIndexedMeshLODDefinition& definition, std::vector<std::uint8_t>& out) {
  if (definition.levels.empty()) return RES_UNKNOWN;
  LodMeshWriter(definition, out).Write();
  return out.size() <= kMaxMeshFile ? RES_SUCCESS : RES_UNKNOWN;
}

}  // namespace morvex
