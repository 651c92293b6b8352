#include "mesh/write_mesh.h"
#include "mesh/write_mesh_parts.h"

namespace morvex {
namespace {

// The chunks, in the order and the layouts that read_indexed_mesh.cpp draws.
class IndexedMeshWriter {
 public:
  IndexedMeshWriter(const MorvexIndexedMeshDefinition& definition, std::vector<std::uint8_t>& out)
      : definition_(definition), level_(definition.MainLevel()), out_(out) {}

  void Write();

 private:
  void WriteInfo();
  void WriteParts();
  void WriteInfluences();
  void WriteSkeleton();
  void WriteBone(const Skeleton::Bone& bone, std::uint32_t children);

  const MorvexIndexedMeshDefinition& definition_;
  const MeshLevel& level_;
  MeshOutput out_;
};

void IndexedMeshWriter::Write() {
  const std::size_t mark = BeginWrapper(out_, MeshFormat::kIndexedMesh);
  WriteInfo();
  WriteParts();
  if (!definition_.influences.empty()) {
    WriteInfluences();
  } else if (!definition_.skeleton.Empty()) {
    WriteSkeleton();
  }
  if (!definition_.attachments.empty()) WriteAttachments(out_, definition_.attachments);
  out_.End(mark);
}

void IndexedMeshWriter::WriteInfo() {
  const std::size_t mark = out_.Begin(MeshFormat::kInfo, MeshFormat::kInfoVersion);
  out_.Words(definition_.position);
  out_.Words(definition_.orientation);
  out_.Count(level_.parts.size());
  out_.U32(level_.maxInfluencesPerVertex);
  out_.U32(level_.maxMatricesPerChunk);
  out_.End(mark);
}

void IndexedMeshWriter::WriteParts() {
  const MaterialWriter materials(definition_);
  for (std::size_t i = 0; i < level_.parts.size(); ++i) {
    const MeshPart& part = level_.parts[i];
    const std::size_t mark = out_.Begin(MeshFormat::kPart, MeshFormat::kVersion);
    out_.Count(i);
    materials.Write(out_, *part.material);
    WriteGeometry(out_, part);
    WriteFaceNeighbours(out_, *part.chunk);
    out_.End(mark);
  }
}

void IndexedMeshWriter::WriteInfluences() {
  const std::size_t mark = out_.Begin(MeshFormat::kInfluences, MeshFormat::kVersion);
  out_.Count(definition_.influences.size());
  for (std::size_t i = 0; i < definition_.influences.size(); ++i) {
    WriteInfluence(out_, definition_.influences[i]);
    WriteGroups(out_, GroupsOf(level_, i));
  }
  out_.End(mark);
}

// A bone's chunk ends behind its last descendant's, so the marks of the bones above stay open.
void IndexedMeshWriter::WriteSkeleton() {
  const Skeleton& skeleton = definition_.skeleton;
  std::vector<std::uint32_t> children(skeleton.Size());
  for (std::uint32_t i = 0; i < skeleton.Size(); ++i) {
    if (i != skeleton.Root()) ++children[skeleton.At(i).parent];
  }
  struct Open {
    std::size_t mark;
    std::uint32_t childrenLeft;
  };
  std::vector<Open> open = {{out_.Begin(MeshFormat::kSkeleton, MeshFormat::kVersion), 1}};
  for (const std::uint32_t number : skeleton.DepthFirst()) {
    --open.back().childrenLeft;
    open.push_back({out_.Begin(MeshFormat::kBone, MeshFormat::kVersion), children[number]});
    WriteBone(skeleton.At(number), children[number]);
    while (!open.empty() && open.back().childrenLeft == 0) {
      out_.End(open.back().mark);
      open.pop_back();
    }
  }
}

void IndexedMeshWriter::WriteBone(const Skeleton::Bone& bone, std::uint32_t children) {
  out_.Text(bone.name);
  out_.Words(bone.position);
  out_.Words(bone.orientation);
  out_.U32(children);
}

}  // namespace

MeshResult SaveIndexedMesh(const MorvexIndexedMeshDefinition& definition, std::vector<std::uint8_t>& out) {
  if (definition.levels.empty()) return RES_UNKNOWN;
  IndexedMeshWriter(definition, out).Write();
  return out.size() <= kMaxMeshFile ? RES_SUCCESS : RES_UNKNOWN;
}

}  // namespace morvex
