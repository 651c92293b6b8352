#include "mesh/write_mesh_parts.h"

#include <array>

#include "mesh/vertex_records.h"

namespace morvex {
namespace {

// Chunks of these types have no faces that could have normals.
constexpr std::uint32_t kFacelessFormats = 3;

constexpr std::uint32_t kVectorBytes = sizeof(Nox::Vector3);
constexpr std::array<RecordItem, 2> kVertexRecord = {
    {{Nox::StreamId::kPosition, kVectorBytes}, {Nox::StreamId::kTexture0, 2 * sizeof(float)}}};
constexpr std::array<RecordItem, 1> kNormalRecord = {{{Nox::StreamId::kNormal, kVectorBytes}}};
constexpr std::array<RecordItem, 1> kAxisRecord = {{{Nox::StreamId::kAxis, kVectorBytes}}};

void WriteColour(MeshOutput& out, const Nox::Colour& colour, float scale) {
  out.F32(colour.r * scale);
  out.F32(colour.g * scale);
  out.F32(colour.b * scale);
}

}  // namespace

MaterialWriter::MaterialWriter(const MorvexIndexedMeshDefinition& definition)
    : prefix_(definition.materialPrefix) {
  for (const PendingTexture& pending : definition.pendingTextures)
    pending_[pending.material.Get()].push_back(&pending.texture);
}

std::vector<const Nox::TextureDefinition*> MaterialWriter::TexturesOf(const Nox::Material& material) const {
  std::vector<const Nox::TextureDefinition*> textures;
  for (const Nox::TextureDefinition& texture : material.GetTextureDefinitions())
    textures.push_back(&texture);
  const auto pending = pending_.find(&material);
  if (pending != pending_.end())
    textures.insert(textures.end(), pending->second.begin(), pending->second.end());
  return textures;
}

void MaterialWriter::Write(MeshOutput& out, const Nox::Material& material) const {
  const std::size_t mark = out.Begin(MeshFormat::kMaterial, MeshFormat::kMaterialVersion);
  std::string_view name = material.GetRequestName();
  if (name.starts_with(prefix_)) name.remove_prefix(prefix_.size());
  out.Text(name);
  out.Count(material.GetNumProperties());
  for (const auto& [key, value] : material.GetProperties()) {
    out.Text(key);
    out.Text(value);
  }
  out.U32(material.GetFlag() ? 1 : 0);
  out.F32(material.GetOpacity());
  const Nox::DisplayMaterial& display = material.GetDisplayMaterialProperties();
  for (std::size_t i = 0; i < display.colours.size(); ++i)
    WriteColour(out, display.colours[i], i == 3 ? MeshFormat::kStoredColourScale : 1);
  out.F32(display.power);
  const auto textures = TexturesOf(material);
  out.Count(textures.size());
  for (const Nox::TextureDefinition* texture : textures) {
    out.U32(texture->slot);
    out.Text(std::string_view(texture->name).substr(texture->name.find_last_of("/\\") + 1));
    out.F32(texture->weight);
  }
  out.End(mark);
}

void WriteGeometry(MeshOutput& out, const MeshPart& part) {
  const Nox::GeometryChunk& chunk = *part.chunk;
  const Nox::GeometryChunkSize& size = chunk.Size();
  const bool hasAxis = static_cast<bool>(chunk.GetStream(Nox::StreamId::kAxis));
  const bool hasFaceNormals = (chunk.Flags() & kFacelessFormats) == 0;
  const std::size_t mark = out.Begin(MeshFormat::kGeometry, MeshFormat::kGeometryVersion);
  out.U32(chunk.Flags());
  out.U32(hasAxis ? MeshFormat::kAxisFlag : 0);
  out.F32(chunk.Hint().chunkValue);
  out.U32(size.vertices);
  out.U32(size.faces);
  out.U32(size.indices);
  out.U32(hasFaceNormals ? size.faceNormals : 0);
  out.U32(chunk.Hint().weightCount);
  out.Text(part.name);
  out.Records(chunk, kVertexRecord);
  out.Array(chunk.GetIndexArray());
  out.Records(chunk, kNormalRecord);
  if (hasFaceNormals) out.Array(chunk.GetFaceNormalArray());
  if (hasAxis) out.Records(chunk, kAxisRecord);
  out.End(mark);
}

void WriteFaceNeighbours(MeshOutput& out, const Nox::GeometryChunk& chunk) {
  if (chunk.Size().faces == 0 || chunk.FaceNeighbours().empty()) return;
  const std::size_t mark = out.Begin(MeshFormat::kNeighbours, MeshFormat::kVersion);
  out.Bytes(chunk.FaceNeighbours());
  out.End(mark);
}

void WriteAttachments(MeshOutput& out, const std::vector<MeshAttachment>& attachments) {
  const std::size_t mark = out.Begin(MeshFormat::kAttachments, MeshFormat::kVersion);
  out.Count(attachments.size());
  for (const MeshAttachment& attachment : attachments) {
    out.Text(attachment.name);
    out.Words(attachment.rotation);
    out.Words(attachment.position);
  }
  out.End(mark);
}

void WriteInfluence(MeshOutput& out, const MeshInfluence& influence) {
  out.Text(influence.name);
  out.Text(influence.parent);
  out.Words(influence.position);
  out.Words(influence.rotation);
}

void WriteGroups(MeshOutput& out, const std::vector<VertexGroup>& groups) {
  out.Count(groups.size());
  for (const VertexGroup& group : groups) {
    out.U32(group.part);
    out.Count(group.vertices.size());
    out.Array(std::span<const GroupVertex>(group.vertices));
  }
}

const std::vector<VertexGroup>& GroupsOf(const MeshLevel& level, std::size_t influence) {
  static const std::vector<VertexGroup> kNone;
  return influence < level.bindings.size() ? level.bindings[influence] : kNone;
}

std::size_t BeginWrapper(MeshOutput& out, MeshFormat::Tag kind) {
  const std::size_t mark = out.Begin(MeshFormat::kWrapper);
  out.Tag(kind);
  return mark;
}

}  // namespace morvex
