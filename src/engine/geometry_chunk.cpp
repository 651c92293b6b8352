#include "engine/geometry_chunk.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace Nox {
namespace {

// The low bits of a format word, by type.
constexpr std::array<std::uint32_t, 6> kFormats = {4, 8, 16, 1, 2, 0};

constexpr std::size_t kAlignment = 16;

// A blend index is a byte that holds three times the number of a matrix, and 0xFE marks a free place.
constexpr std::size_t kMaxMatrices = 0xFE / 3;

// Of an array laid behind `total` bytes of others.
std::size_t Place(std::size_t& total, std::size_t count, std::size_t bytes) {
  const std::size_t place = (total + kAlignment - 1) / kAlignment * kAlignment;
  total = place + count * bytes;
  return place;
}

}  // namespace

std::optional<GeometryType> GeometryChunk::TypeOfFormat(std::uint32_t format) {
  const auto found = std::find(kFormats.begin(), kFormats.end(), format & kFormatMask);
  if (found == kFormats.end()) return std::nullopt;
  return static_cast<GeometryType>(found - kFormats.begin());
}

void GeometryChunk::FreeBytes::operator()(std::uint8_t* bytes) const {
  std::free(bytes);
}

GeometryChunk::GeometryChunk(const VertexType& type, const GeometryChunkSize& size,
                             const StandardChunkHint& hint)
    : vertexType_(type),
      size_(size),
      hint_(hint),
      flags_(kFormats[static_cast<std::size_t>(size.type)] |
             (hint.skinned && hint.softwareSkinned ? kSoftwareSkinned : 0)) {}

Ref<GeometryChunk> GeometryChunk::Create(const VertexType& type, const GeometryChunkSize& size,
                                         const StandardChunkHint& hint) {
  Ref<GeometryChunk> chunk(new GeometryChunk(type, size, hint));
  return chunk->TakeMemory() ? chunk : nullptr;
}

// One piece for all: calloc gives large ones as pages that nobody has to fill with zeros.
bool GeometryChunk::TakeMemory() {
  std::size_t total = 0;
  std::vector<std::size_t> places;
  for (const std::uint32_t stride : vertexType_.Strides())
    places.push_back(Place(total, size_.vertices, stride));
  const std::size_t indices = Place(total, size_.indices, sizeof(std::uint16_t));
  const std::size_t faceNormals = Place(total, size_.faceNormals, sizeof(Vector3));

  memory_.reset(static_cast<std::uint8_t*>(std::calloc(std::max<std::size_t>(total, 1), 1)));
  if (memory_ == nullptr) return false;
  std::uint8_t* const start = memory_.get();
  for (std::size_t block = 0; block < places.size(); ++block) {
    const std::size_t stride = vertexType_.Strides()[block];
    blocks_.emplace_back(start + places[block], size_.vertices * stride);
  }
  indices_ = {reinterpret_cast<std::uint16_t*>(start + indices), size_.indices};
  faceNormals_ = {reinterpret_cast<Vector3*>(start + faceNormals), size_.faceNormals};
  return true;
}

Stream GeometryChunk::GetStream(StreamId id) {
  const VertexType::Item* item = vertexType_.Find(id);
  if (item == nullptr) return {};
  return {blocks_[item->block].data() + item->offset, vertexType_.Strides()[item->block], item->bytes};
}

ConstStream GeometryChunk::GetStream(StreamId id) const {
  const Stream stream = const_cast<GeometryChunk*>(this)->GetStream(id);
  return {stream.data, stream.stride, stream.bytes};
}

std::uint32_t GeometryChunk::TextureSetCount() const {
  std::uint32_t sets = 0;
  while (sets < kMaxTextureSets && vertexType_.Find(TextureStream(sets)) != nullptr)
    ++sets;
  return sets;
}

std::optional<std::uint32_t> GeometryChunk::AddInfluenceMatrix(std::uint32_t bone) {
  const auto found = std::find(matrixBones_.begin(), matrixBones_.end(), bone);
  const auto number = static_cast<std::uint32_t>(found - matrixBones_.begin());
  if (found != matrixBones_.end()) return number;
  if (number >= hint_.matrixLimit || number >= kMaxMatrices) return std::nullopt;
  matrixBones_.push_back(bone);
  return number;
}

void GeometryChunk::SetProperty(PString name, float value) {
  const auto found = std::find_if(properties_.begin(), properties_.end(),
                                  [name](const auto& property) { return property.first == name; });
  if (found != properties_.end()) {
    found->second = value;
  } else {
    properties_.emplace_back(name, value);
  }
}

std::optional<float> GeometryChunk::GetProperty(PString name) const {
  for (const auto& [key, value] : properties_) {
    if (key == name) return value;
  }
  return std::nullopt;
}

VertexType StandardVertexType(const StandardChunkHint& hint) {
  constexpr std::uint32_t kFloat = sizeof(float);
  VertexType type;
  std::uint32_t block = 0;
  type.AddItem(block, StreamId::kPosition, 3 * kFloat);
  for (std::uint32_t set = 0; set < std::min(hint.textureSets, kMaxTextureSets); ++set)
    type.AddItem(block, TextureStream(set), 2 * kFloat);
  type.AddItem(++block, StreamId::kNormal, 3 * kFloat);
  if (hint.colours) type.AddItem(++block, StreamId::kColour, 4);
  if (hint.axis) type.AddItem(++block, StreamId::kAxis, 3 * kFloat);
  if (hint.skinned && !hint.softwareSkinned && hint.weightCount > 0) {
    const std::uint32_t weights = std::min(hint.weightCount, kMaxWeights);
    if (hint.floatPrecision) {
      type.AddItem(++block, WeightStream(weights), weights * kFloat);
    } else {
      type.AddItem(++block, StreamId::kPackedWeights, 4);
    }
    type.AddItem(block, StreamId::kBlendIndices, 4);
  }
  return type;
}

}  // namespace Nox
