#include "tests/mesh/loaded_mesh.h"

#include <cstring>
#include <sstream>

#include "mesh/read_indexed_mesh.h"
#include "mesh/read_lod_mesh.h"

namespace morvex {
namespace {

const Nox::MaterialManager kManager;

std::vector<std::uint8_t> Bytes(std::string_view text) {
  std::vector<std::uint8_t> bytes(text.begin(), text.end());
  bytes.shrink_to_fit();
  return bytes;
}

template <typename Definition, typename Read>
LoadOf<Definition> Load(std::string_view file, const Read& read) {
  LoadOf<Definition> load;
  load.mesh = std::make_unique<Definition>();
  load.result = read(*load.mesh, Bytes(file));
  if (load.result != RES_SUCCESS) load.mesh.reset();
  return load;
}

void Put(std::ostream& out, std::span<const float> floats) {
  for (const float value : floats)
    out << ' ' << value;
}

template <typename T>
void PutWords(std::ostream& out, const T& value) {
  float floats[sizeof(T) / sizeof(float)];
  std::memcpy(floats, &value, sizeof value);
  Put(out, floats);
}

void PutMaterial(std::ostream& out, const Nox::Material& material,
                 const std::vector<PendingTexture>& pendingTextures) {
  out << "  material " << material.GetRequestName() << ' ' << material.GetFlag() << ' '
      << material.GetOpacity();
  for (const Nox::Colour& colour : material.GetDisplayMaterialProperties().colours)
    PutWords(out, colour);
  out << ' ' << material.GetDisplayMaterialProperties().power;
  for (const auto& [key, value] : material.GetProperties())
    out << ' ' << key << '=' << value;
  for (const PendingTexture& pending : pendingTextures) {
    if (pending.material.Get() == &material)
      out << ' ' << pending.texture.slot << ':' << pending.texture.name << ':' << pending.texture.weight;
  }
  out << '\n';
}

void PutChunk(std::ostream& out, const MeshPart& part) {
  const Nox::GeometryChunk& chunk = *part.chunk;
  out << "  chunk '" << part.name.View() << "' " << chunk.Flags() << ' ' << chunk.Hint().chunkValue << ' '
      << chunk.Size().faces << ' ' << chunk.Hint().weightCount;
  for (const std::uint16_t index : chunk.GetIndexArray())
    out << ' ' << index;
  for (const Nox::Vector3& normal : chunk.GetFaceNormalArray())
    PutWords(out, normal);
  for (const std::uint8_t byte : chunk.FaceNeighbours())
    out << ' ' << int{byte};
  for (const Nox::VertexType::Item& item : chunk.Vertices().Items()) {
    out << "\n    " << static_cast<int>(item.id);
    for (std::size_t i = 0; i < chunk.Size().vertices; ++i) {
      for (const int byte : BytesAt(chunk, item.id, i))
        out << ' ' << byte;
    }
  }
  out << '\n';
}

void PutLevel(std::ostream& out, const MeshLevel& level, const MorvexIndexedMeshDefinition& mesh) {
  out << "level " << level.maxInfluencesPerVertex << ' ' << level.maxMatricesPerChunk << ' '
      << level.hardwareSkinned << '\n';
  for (const MeshPart& part : level.parts) {
    PutMaterial(out, *part.material, mesh.pendingTextures);
    PutChunk(out, part);
  }
  for (const auto& groups : level.bindings) {
    out << "  bone";
    for (const VertexGroup& group : groups) {
      out << " [" << group.part;
      for (const GroupVertex& moved : group.vertices) {
        out << ", " << moved.vertex << ' ' << moved.weight;
        PutWords(out, moved.offset);
      }
      out << ']';
    }
    out << '\n';
  }
}

}  // namespace

MeshLoadContext TestContext() {
  MeshLoadContext context;
  context.materials = &kManager;
  context.ownerName = "pack";
  context.resourceName = "trains/loco/body.im";
  return context;
}

LoadedIm LoadIm(std::string_view file, const MeshLoadContext& context) {
  return Load<MorvexIndexedMeshDefinition>(file, [&](auto& mesh, const auto& bytes) {
    return ReadIndexedMesh(mesh, bytes, "a/b\\body.im", context);
  });
}

LoadedIm LoadImText(std::string_view text, const MeshLoadContext& context) {
  return Load<MorvexIndexedMeshDefinition>(text, [&](auto& mesh, const auto& bytes) {
    return ReadIndexedMeshText(mesh, bytes, "body.imtxt", context);
  });
}

LoadedLm LoadLm(std::string_view file, const MeshLoadContext& context) {
  return Load<MorvexIndexedMeshLODDefinition>(
      file, [&](auto& mesh, const auto& bytes) { return ReadLodMesh(mesh, bytes, "body.lm", context); });
}

std::optional<Nox::OwnedBytes> FilesInMemory::ReadMeshFile(std::string_view name) {
  asked.emplace_back(name);
  const auto file = files_.find(asked.back());
  if (file == files_.end()) return std::nullopt;
  return Nox::OwnedBytes::Adopt(Bytes(file->second));
}

LoadedLm LoadLmText(std::string_view text, MeshFileSource& files, const MeshLoadContext& context) {
  return Load<MorvexIndexedMeshLODDefinition>(text, [&](auto& mesh, const auto& bytes) {
    return ReadLodMeshText(mesh, bytes, "body.lm.txt", context, files);
  });
}

std::string Describe(const MorvexIndexedMeshDefinition& mesh) {
  std::ostringstream out;
  out << "place";
  PutWords(out, mesh.position);
  PutWords(out, mesh.orientation);
  out << '\n';
  for (const MeshAttachment& attachment : mesh.attachments) {
    out << "attachment " << attachment.name.View();
    PutWords(out, attachment.rotation);
    PutWords(out, attachment.position);
    out << '\n';
  }
  for (const MeshInfluence& bone : mesh.influences)
    out << "influence " << bone.name.View() << " of " << bone.parent.View() << '\n';
  out << "bones " << BoneTreeText(mesh.skeleton) << '\n';
  for (std::uint32_t i = 0; i < mesh.skeleton.Size(); ++i) {
    const Skeleton::Bone& bone = mesh.skeleton.At(i);
    out << "bone " << bone.name.View();
    PutWords(out, bone.position);
    PutWords(out, bone.rotation);
    out << '\n';
  }
  for (const auto& level : mesh.levels)
    PutLevel(out, *level, mesh);
  return out.str();
}

std::string Describe(const MorvexIndexedMeshLODDefinition& mesh) {
  std::ostringstream out;
  out << Describe(static_cast<const MorvexIndexedMeshDefinition&>(mesh)) << "thresholds";
  Put(out, mesh.thresholds);
  out << "\nlod " << static_cast<std::uint32_t>(mesh.calcPoint);
  Put(out, std::vector{mesh.offset, mesh.multiplier, mesh.animationCutOff, mesh.renderCutOff,
                       mesh.attachmentCutOff});
  for (const NamedMesh& named : mesh.namedMeshes)
    out << "\nnamed " << named.name.View() << ' ' << named.level << ' ' << named.animated;
  for (const Nox::PString name : mesh.cullAttachments)
    out << "\ncull " << name.View();
  return out.str();
}

// Each bone stands behind its parent and before its next sibling, so only the depths are needed.
std::string BoneTreeText(const Skeleton& skeleton) {
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

std::vector<float> FloatsAt(const Nox::GeometryChunk& chunk, Nox::StreamId id, std::size_t vertex) {
  const Nox::ConstStream stream = chunk.GetStream(id);
  std::vector<float> floats(stream.bytes / sizeof(float));
  if (stream) std::memcpy(floats.data(), stream.At(vertex), stream.bytes);
  return floats;
}

std::vector<int> BytesAt(const Nox::GeometryChunk& chunk, Nox::StreamId id, std::size_t vertex) {
  const Nox::ConstStream stream = chunk.GetStream(id);
  if (!stream) return {};
  return std::vector<int>(stream.At(vertex), stream.At(vertex) + stream.bytes);
}

std::string AsText(const std::vector<std::uint8_t>& bytes) {
  return std::string(bytes.begin(), bytes.end());
}

}  // namespace morvex
