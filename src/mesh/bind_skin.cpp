#include "mesh/bind_skin.h"

#include <cstring>
#include <optional>
#include <unordered_map>

// In the streams, a vertex has up to four places. The blend index of a place is a byte that holds three times the
// number of a matrix of the chunk; the weight is a float, or a byte of a word in which the first place lies
// highest. While places are left, the blend index of the next one holds a mark.
namespace morvex {
namespace {

constexpr std::uint8_t kFreePlace = 0xFE;
constexpr std::uint32_t kRowsOfMatrix = 3;

// The two streams of a chunk that tell the bones of its vertices.
class BlendStreams {
 public:
  explicit BlendStreams(Nox::GeometryChunk& chunk) : indices_(chunk.GetStream(Nox::StreamId::kBlendIndices)) {
    places_ = Nox::kMaxWeights;
    weights_ = chunk.GetStream(Nox::StreamId::kPackedWeights);
    for (std::uint32_t count = 1; !weights_ && count <= Nox::kMaxWeights; ++count) {
      weights_ = chunk.GetStream(Nox::WeightStream(count));
      places_ = count;
      isFloat_ = true;
    }
  }

  explicit operator bool() const { return indices_ && weights_; }

  void MarkFree(std::size_t vertex) { *indices_.At(vertex) = kFreePlace; }
  // A vertex that no bone moves stays with the first matrix.
  void ClearUnused(std::size_t vertex) {
    if (*indices_.At(vertex) == kFreePlace) *indices_.At(vertex) = 0;
  }

  void Add(std::size_t vertex, std::uint32_t matrix, float weight) {
    std::uint8_t* const indices = indices_.At(vertex);
    const auto* const found = static_cast<const std::uint8_t*>(std::memchr(indices, kFreePlace, places_));
    if (found == nullptr) return;
    const auto place = static_cast<std::uint32_t>(found - indices);
    indices[place] = static_cast<std::uint8_t>(matrix * kRowsOfMatrix);
    if (place + 1 < places_) indices[place + 1] = kFreePlace;
    SetWeight(vertex, place, weight);
  }

 private:
  void SetWeight(std::size_t vertex, std::uint32_t place, float weight) {
    if (isFloat_) {
      std::memcpy(weights_.At(vertex) + place * sizeof weight, &weight, sizeof weight);
    } else {
      weights_.At(vertex)[Nox::kMaxWeights - 1 - place] = Packed(weight);
    }
  }

  // What isn't a share of one becomes the nearest that is.
  static std::uint8_t Packed(float weight) {
    if (!(weight > 0)) return 0;
    return weight >= 1 ? 0xFF : static_cast<std::uint8_t>(weight * 255);
  }

  Nox::Stream indices_;
  Nox::Stream weights_;
  std::uint32_t places_ = 0;
  bool isFloat_ = false;
};

bool CanBind(const VertexGroup& group, const MeshLevel& level) {
  if (group.part >= level.parts.size()) return false;
  const Nox::GeometryChunk& chunk = *level.parts[group.part].chunk;
  return (chunk.Flags() & Nox::GeometryChunk::kSoftwareSkinned) == 0 &&
         chunk.Size().vertices >= group.vertices.size();
}

void BindGroup(const VertexGroup& group, std::uint32_t bone, Nox::GeometryChunk& chunk) {
  BlendStreams streams(chunk);
  if (!streams) return;
  const bool isFirst = chunk.InfluenceMatrices().empty();
  const std::optional<std::uint32_t> matrix = chunk.AddInfluenceMatrix(bone);
  if (!matrix) return;
  const std::uint32_t vertices = chunk.Size().vertices;
  for (std::size_t i = 0; isFirst && i < vertices; ++i)
    streams.MarkFree(i);
  for (const GroupVertex& moved : group.vertices) {
    if (moved.vertex < vertices) streams.Add(moved.vertex, *matrix, moved.weight);
  }
}

}  // namespace

void BindSkin(MeshLevel& level, const std::vector<MeshInfluence>& influences) {
  if (!level.hardwareSkinned) return;
  std::unordered_map<Nox::PString, std::uint32_t> numbers;
  for (std::uint32_t i = 0; i < level.bindings.size(); ++i) {
    const std::uint32_t bone = numbers.try_emplace(influences[i].name, i).first->second;
    for (const VertexGroup& group : level.bindings[i]) {
      if (CanBind(group, level)) BindGroup(group, bone, *level.parts[group.part].chunk);
    }
  }
  for (MeshPart& part : level.parts) {
    BlendStreams streams(*part.chunk);
    if (!streams || part.chunk->InfluenceMatrices().empty()) continue;
    for (std::size_t i = 0; i < part.chunk->Size().vertices; ++i)
      streams.ClearUnused(i);
  }
}

}  // namespace morvex
