#include "mesh/make_chunk.h"

#include <algorithm>
#include <cstring>

#include "mesh/indexed_mesh_definition.h"

namespace morvex {
namespace {

constexpr std::uint32_t kInfluenceLimit = 4;  // bones to a vertex
constexpr std::uint32_t kDefaultMode = 2;

// Matrices to a chunk; one less where the display keeps a place for itself.
std::uint32_t MatrixLimit(const MeshDisplay& display) {
  return display.skinsMeshes ? 24 : 25;
}

std::uint32_t Mode(const std::optional<bool>& setting) {
  return setting ? std::uint32_t{*setting} : kDefaultMode;
}

Nox::StandardChunkHint MakeHint(const GeometryHeader& header, const MeshLoadContext& context,
                                bool hardwareSkinned) {
  const MeshSettings& settings = context.settings;
  Nox::StandardChunkHint hint;
  hint.vertexMode = Mode(settings.dynamicVertex);
  hint.indexMode = Mode(settings.dynamicIndex);
  hint.softwareLighting = settings.softwareLighting.value_or(false);
  hint.chunkValue = header.value;
  hint.textureSets = header.textureSets;
  hint.colours = header.colours;
  hint.axis = header.axis;
  hint.weightCount = header.weights;
  if (header.weights == 0) return hint;
  hint.skinned = true;
  hint.softwareSkinned = !hardwareSkinned;
  if (hardwareSkinned) {
    hint.influenceLimit = kInfluenceLimit;
    hint.matrixLimit = MatrixLimit(context.display);
    hint.floatPrecision = settings.hardwareAnimationFloatPrecision.value_or(false);
  }
  return hint;
}

void InitWeights(Nox::GeometryChunk& chunk) {
  constexpr std::uint32_t kFirstPackedWeight = 0xFF000000;
  FillStream(chunk, Nox::StreamId::kPackedWeights, kFirstPackedWeight);
  constexpr float kOne = 1;
  for (std::uint32_t count = 1; count <= Nox::kMaxWeights; ++count) {
    const Nox::Stream weights = chunk.GetStream(Nox::WeightStream(count));
    for (std::size_t i = 0; weights && i < chunk.Size().vertices; ++i)
      std::memcpy(weights.At(i), &kOne, sizeof kOne);
  }
}

}  // namespace

std::vector<RecordItem> GeometryHeader::VertexLayout() const {
  std::vector<RecordItem> layout = {{Nox::StreamId::kPosition, kVectorBytes}};
  for (std::uint32_t set = 0; set < std::min(textureSets, Nox::kMaxTextureSets); ++set)
    layout.push_back({Nox::TextureStream(set), kTextureBytes});
  return layout;
}

bool IsHardwareSkinned(const MeshLevel& level, const MeshLoadContext& context) {
  return level.maxInfluencesPerVertex > 0 && level.maxInfluencesPerVertex <= kInfluenceLimit &&
         level.maxMatricesPerChunk <= MatrixLimit(context.display) && context.display.skinsMeshes &&
         !context.settings.softwareAnimation.value_or(false);
}

Nox::Ref<Nox::GeometryChunk> MakeChunk(const GeometryHeader& header, const MeshLoadContext& context,
                                       bool hardwareSkinned, const Nox::Material& material) {
  Nox::Ref<Nox::GeometryChunk> chunk =
      material.CreateGeometryChunk(header.size, MakeHint(header, context, hardwareSkinned));
  if (chunk == nullptr) return nullptr;
  FillStream(*chunk, Nox::StreamId::kColour, context.display.vertexColour);
  InitWeights(*chunk);
  return chunk;
}

}  // namespace morvex
