#include "mesh/text_geometry.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

#include "engine/text.h"
#include "mesh/indexed_mesh_definition.h"
#include "mesh/make_chunk.h"
#include "mesh/text_values.h"

// chunk <material> {
//   name <text>                       # optional, as the next two
//   value <number>
//   weights <count>                   # bones to a vertex
//   vertex <x y z> <nx ny nz> [<u v> ...]   # one for each vertex, all with as many texture coordinates
//   face <a> <b> <c>                  # one for each triangle, vertices counted from 0
//   faceNormal <x y z>                # any number
//   axis <x y z>                      # for each vertex, or none
// }
namespace morvex {
namespace {

constexpr std::size_t kFixedFloats = 6;  // position and normal
constexpr std::uint32_t kLastIndex = 0xFFFF;

// The arrays of a chunk as binary files have them.
class TextGeometry {
 public:
  bool Read(const Nox::ConfigData& chunk);
  bool Build(const MeshLoadContext& context, bool hardwareSkinned, MeshPart& part);

 private:
  using ItemReader = bool (TextGeometry::*)(Nox::ConfigValues);
  struct ItemKind {
    std::string_view key;
    ItemReader read;
  };
  static const std::array<ItemKind, 4> kItems;

  bool ReadVertex(Nox::ConfigValues values);
  bool ReadFace(Nox::ConfigValues values);
  bool ReadFaceNormal(Nox::ConfigValues values) { return ReadVectorOf(values, faceNormals_); }
  bool ReadAxis(Nox::ConfigValues values) { return ReadVectorOf(values, axis_); }
  static bool ReadVectorOf(Nox::ConfigValues values, std::vector<Nox::Vector3>& out);
  bool Fits();

  GeometryHeader header_;
  std::string name_;
  std::vector<float> vertices_;  // position and texture coordinates
  std::vector<Nox::Vector3> normals_;
  std::vector<std::uint16_t> indices_;
  std::vector<Nox::Vector3> faceNormals_;
  std::vector<Nox::Vector3> axis_;
};

const std::array<TextGeometry::ItemKind, 4> TextGeometry::kItems = {{
    {"vertex", &TextGeometry::ReadVertex},
    {"face", &TextGeometry::ReadFace},
    {"faceNormal", &TextGeometry::ReadFaceNormal},
    {"axis", &TextGeometry::ReadAxis},
}};

// The first vertex decides how many texture sets there are.
bool TextGeometry::ReadVertex(Nox::ConfigValues values) {
  std::array<float, kFixedFloats + 2 * Nox::kMaxTextureSets> numbers;
  std::size_t count = 0;
  while (!values.AtEnd()) {
    if (count == numbers.size() || !values.Next(numbers[count++])) return false;
  }
  if (count < kFixedFloats || count % 2 != 0) return false;
  const auto sets = static_cast<std::uint32_t>((count - kFixedFloats) / 2);
  if (vertices_.empty()) header_.textureSets = sets;
  if (sets != header_.textureSets) return false;
  const std::span<const float> given(numbers.data(), count);
  const std::span<const float> position = given.first(3);
  const std::span<const float> texture = given.subspan(kFixedFloats);
  vertices_.insert(vertices_.end(), position.begin(), position.end());
  vertices_.insert(vertices_.end(), texture.begin(), texture.end());
  normals_.push_back({given[3], given[4], given[5]});
  return true;
}

bool TextGeometry::ReadFace(Nox::ConfigValues values) {
  for (int corner = 0; corner < 3; ++corner) {
    std::uint32_t index = 0;
    if (!NextCount(values, index) || index > kLastIndex) return false;
    indices_.push_back(static_cast<std::uint16_t>(index));
  }
  return values.AtEnd();
}

bool TextGeometry::ReadVectorOf(Nox::ConfigValues values, std::vector<Nox::Vector3>& out) {
  Nox::Vector3& vector = out.emplace_back();
  return values.Next(vector.x) && values.Next(vector.y) && values.Next(vector.z) && values.AtEnd();
}

bool TextGeometry::Read(const Nox::ConfigData& chunk) {
  for (auto item = chunk.FirstChild(); item; item = item.Next()) {
    const auto kind = std::find_if(kItems.begin(), kItems.end(), [&item](const ItemKind& known) {
      return Nox::EqualsIgnoreCase(known.key, item.Key());
    });
    if (kind != kItems.end() && !(this->*kind->read)(item.Values())) return false;
  }
  chunk.Find("name") >> name_;
  return ReadFloat(chunk.Find("value"), header_.value) && ReadCount(chunk.Find("weights"), header_.weights) &&
         Fits();
}

// Sets the counts; false if the arrays don't go together.
bool TextGeometry::Fits() {
  Nox::GeometryChunkSize& size = header_.size;
  size.vertices = static_cast<std::uint32_t>(normals_.size());
  size.indices = static_cast<std::uint32_t>(indices_.size());
  size.faces = size.indices / 3;
  size.faceNormals = static_cast<std::uint32_t>(faceNormals_.size());
  header_.axis = !axis_.empty();
  const auto last = std::max_element(indices_.begin(), indices_.end());
  return (last == indices_.end() || *last < size.vertices) &&
         (!header_.axis || axis_.size() == normals_.size());
}

template <typename T>
std::span<const std::uint8_t> BytesOf(const std::vector<T>& values) {
  return {reinterpret_cast<const std::uint8_t*>(values.data()), values.size() * sizeof(T)};
}

bool TextGeometry::Build(const MeshLoadContext& context, bool hardwareSkinned, MeshPart& part) {
  part.name = Nox::PString(name_);
  part.chunk = MakeChunk(header_, context, hardwareSkinned, *part.material);
  if (part.chunk == nullptr) return false;
  Nox::GeometryChunk& chunk = *part.chunk;
  const RecordItem normal = {Nox::StreamId::kNormal, kVectorBytes};
  const RecordItem axis = {Nox::StreamId::kAxis, kVectorBytes};
  CopyRecordsIn(chunk, BytesOf(vertices_), header_.VertexBytes(), header_.VertexLayout());
  CopyRecordsIn(chunk, BytesOf(normals_), kVectorBytes, {&normal, 1});
  CopyRecordsIn(chunk, BytesOf(axis_), kVectorBytes, {&axis, 1});
  std::copy(indices_.begin(), indices_.end(), chunk.GetIndexArray().begin());
  std::copy(faceNormals_.begin(), faceNormals_.end(), chunk.GetFaceNormalArray().begin());
  return true;
}

}  // namespace

bool ReadTextGeometry(const Nox::ConfigData& chunk, const MeshLoadContext& context, bool hardwareSkinned,
                      MeshPart& part) {
  TextGeometry geometry;
  return geometry.Read(chunk) && geometry.Build(context, hardwareSkinned, part);
}

}  // namespace morvex
