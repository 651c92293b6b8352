#include "mesh/read_geometry.h"

#include <cstring>
#include <optional>

#include "engine/geometry_chunk.h"
#include "engine/material.h"
#include "mesh/indexed_mesh_definition.h"
#include "mesh/make_chunk.h"
#include "mesh/vertex_records.h"

// GEOM, versions 101 to 201
//
//   u32 format        what geometry it is, in the low five bits; flags
//   u32 further flags bit 0: the axis is there                   from version 201
//   f32 value         kept
//   u32 vertices, faces, indices, face normals
//   u32 texture sets  otherwise 1                                by the rules of the file
//   u32 weights       bones to a vertex, otherwise 0             from version 102
//   padded string     name                                       by the rules of the file
//   vertices  x (3 f32 position, texture sets x (f32 u, f32 v))
//   indices   x u16
//   vertices  x 3 f32 normal
//   vertices  x u32 colour                                       by the rules of the file
//   face normals x 3 f32
//   vertices  x 3 f32 axis                                       by the further flags
//
// NINF, version 100: faces x 12 bytes
namespace morvex {
namespace {

constexpr std::uint32_t kFirstVersion = 101;
constexpr std::uint32_t kWeightsFrom = 102;
constexpr std::uint32_t kFurtherFlagsFrom = 201;
constexpr VersionRange kNever = {0, 0};

struct Header : GeometryHeader {
  std::uint32_t format = 0;
  Nox::PString name;
};

Header ReadHeader(MeshInput& in, const GeometryRules& rules, std::uint32_t version) {
  Header header;
  header.format = in.U32();
  if (version >= kFurtherFlagsFrom) header.axis = (in.U32() & MeshFormat::kAxisFlag) != 0;
  header.value = in.F32();
  header.size.vertices = in.U32();
  header.size.faces = in.U32();
  header.size.indices = in.U32();
  header.size.faceNormals = in.U32();
  if (rules.textureSets.Holds(version)) header.textureSets = in.U32();
  if (version >= kWeightsFrom) header.weights = in.U32();
  if (rules.name.Holds(version)) header.name = Nox::PString(in.Text());
  header.colours = rules.colours.Holds(version);
  return header;
}

// Whether so many bytes are left as the arrays of the chunk will take.
bool ArraysFit(const Header& header, std::uint64_t left) {
  const auto take = [&left](std::uint64_t count, std::uint64_t bytes) {
    if (count > left / bytes) return false;
    left -= count * bytes;
    return true;
  };
  const std::uint32_t vertices = header.size.vertices;
  return take(vertices, header.VertexBytes()) && take(header.size.indices, sizeof(std::uint16_t)) &&
         take(vertices, kVectorBytes) && (!header.colours || take(vertices, kColourBytes)) &&
         take(header.size.faceNormals, kVectorBytes) && (!header.axis || take(vertices, kVectorBytes));
}

void ReadStream(MeshInput& in, Nox::GeometryChunk& chunk, Nox::StreamId id, std::uint32_t bytes) {
  const RecordItem item = {id, bytes};
  CopyRecordsIn(chunk, in.Bytes(std::size_t{chunk.Size().vertices} * bytes), bytes, {&item, 1});
}

template <typename T>
void ReadWords(MeshInput& in, std::span<T> words) {
  const auto bytes = in.Bytes(words.size_bytes());
  if (!bytes.empty()) std::memcpy(words.data(), bytes.data(), bytes.size());
}

// The bytes are there.
void ReadArrays(MeshInput& in, const Header& header, Nox::GeometryChunk& chunk) {
  const std::size_t stride = header.VertexBytes();
  CopyRecordsIn(chunk, in.Bytes(header.size.vertices * stride), stride, header.VertexLayout());
  ReadWords(in, chunk.GetIndexArray());
  ReadStream(in, chunk, Nox::StreamId::kNormal, kVectorBytes);
  if (header.colours) ReadStream(in, chunk, Nox::StreamId::kColour, kColourBytes);
  ReadWords(in, chunk.GetFaceNormalArray());
  if (header.axis) ReadStream(in, chunk, Nox::StreamId::kAxis, kVectorBytes);
}

}  // namespace

const GeometryRules kIndexedMeshGeometry = {
    .name = {200, ~0U}, .textureSets = {103, 200}, .colours = {104, 200}, .skipsRest = true};
const GeometryRules kLodMeshGeometry = {
    .name = {103, ~0U}, .textureSets = kNever, .colours = kNever, .skipsRest = false};

bool ReadGeometry(MeshInput& in, const GeometryRules& rules, const MeshLoadContext& context,
                  bool hardwareSkinned, MeshPart& part) {
  MeshInput::Chunk geometry;
  if (!in.Open(MeshFormat::kGeometry, kFirstVersion, MeshFormat::kGeometryVersion, geometry)) return false;
  Header header = ReadHeader(in, rules, geometry.version);
  const std::optional<Nox::GeometryType> type = Nox::GeometryChunk::TypeOfFormat(header.format);
  if (!type || !ArraysFit(header, in.Remaining())) return in.Fail();
  header.size.type = *type;
  part.name = header.name;
  part.chunk = MakeChunk(header, context, hardwareSkinned, *part.material);
  if (part.chunk == nullptr) return in.Fail();
  ReadArrays(in, header, *part.chunk);
  return rules.skipsRest ? in.SkipTo(geometry) : in.ExpectEnd(geometry);
}

bool ReadFaceNeighbours(MeshInput& in, MeshPart& part) {
  MeshInput::Chunk neighbours;
  if (!in.Open(MeshFormat::kNeighbours, neighbours)) return false;
  part.chunk->SetFaceNeighbours(
      in.Bytes(std::size_t{part.chunk->Size().faces} * Nox::GeometryChunk::kFaceNeighbourBytes));
  return in.Ok();
}

}  // namespace morvex
