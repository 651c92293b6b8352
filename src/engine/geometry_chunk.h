#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "engine/pstring.h"
#include "engine/reference.h"
#include "engine/vector_math.h"
#include "engine/vertex_type.h"

namespace Nox {

// By the engine's numbers. Only the triangle list has a meaning that this system relies on.
enum class GeometryType : std::uint32_t { kTriangles = 0, kType1, kType2, kType3, kType4, kType5 };

struct GeometryChunkSize {
  std::uint32_t vertices = 0;
  std::uint32_t faces = 0;
  std::uint32_t indices = 0;
  std::uint32_t faceNormals = 0;
  GeometryType type = GeometryType::kTriangles;
};

// What the maker of a mesh wishes of a chunk. A material may give the chunk other streams than those asked
// for; what it has no stream for is left out.
struct StandardChunkHint {
  std::uint32_t vertexMode = 2;  // as the engine numbers them
  std::uint32_t indexMode = 2;
  bool softwareLighting = false;
  bool skinned = false;
  bool softwareSkinned = false;  // of a skinned chunk
  bool floatPrecision = false;   // float weights in place of packed ones; of a hardware-skinned chunk
  std::uint32_t influenceLimit = 0;
  std::uint32_t matrixLimit = 0;
  std::uint32_t weightCount = 0;  // bone weights a vertex, as the file says
  float chunkValue = 0;           // kept and written back

  // What the file holds for each vertex beside position and normal.
  std::uint32_t textureSets = 1;
  bool colours = false;
  bool axis = false;
};

// The vertices of a stream, one every `stride` bytes. Without data there is no such stream.
template <typename Byte>
struct StreamOf {
  Byte* data = nullptr;
  std::size_t stride = 0;
  std::size_t bytes = 0;  // of one item

  explicit operator bool() const { return data != nullptr; }
  Byte* At(std::size_t vertex) const { return data + vertex * stride; }
};
using Stream = StreamOf<std::uint8_t>;
using ConstStream = StreamOf<const std::uint8_t>;

// A renderable part of a mesh: vertices in streams, indices, face normals. Made by a material, held by counted
// references. All arrays begin as zeros and have the sizes given at the start for good. Nothing is drawn: the
// chunk is filled, looked at and written.
class GeometryChunk : public ReferenceCountMP {
 public:
  static constexpr std::uint32_t kFormatMask = 0x1F;       // what geometry it holds
  static constexpr std::uint32_t kSoftwareSkinned = 0x40;  // no matrices are bound to it
  static constexpr std::size_t kFaceNeighbourBytes = 12;   // of one face

  // The type of a file's format word, of which the low five bits count; none for a word that has none.
  static std::optional<GeometryType> TypeOfFormat(std::uint32_t format);

  // Null if there is no memory.
  [[nodiscard]] static Ref<GeometryChunk> Create(const VertexType& type, const GeometryChunkSize& size,
                                                 const StandardChunkHint& hint);

  const GeometryChunkSize& Size() const { return size_; }
  const StandardChunkHint& Hint() const { return hint_; }
  const VertexType& Vertices() const { return vertexType_; }
  // The format word of the type, and flags.
  std::uint32_t Flags() const { return flags_; }

  Stream GetStream(StreamId id);
  ConstStream GetStream(StreamId id) const;
  // A block whole, as the vertex type lays it out.
  std::span<std::uint8_t> Block(std::uint32_t block) { return blocks_[block]; }
  // Texture sets 0 to n - 1 for which there is a stream.
  std::uint32_t TextureSetCount() const;

  std::span<std::uint16_t> GetIndexArray() { return indices_; }
  std::span<const std::uint16_t> GetIndexArray() const { return indices_; }
  std::span<Vector3> GetFaceNormalArray() { return faceNormals_; }
  std::span<const Vector3> GetFaceNormalArray() const { return faceNormals_; }

  // A record of kFaceNeighbourBytes for each face, or nothing. Their meaning is the engine's.
  std::span<const std::uint8_t> FaceNeighbours() const { return neighbours_; }
  void SetFaceNeighbours(std::span<const std::uint8_t> records) {
    neighbours_.assign(records.begin(), records.end());
  }

  // The number of the chunk's matrix for a bone, added if it has none yet; none if the hint's limit, or what
  // a blend index can say, is reached.
  std::optional<std::uint32_t> AddInfluenceMatrix(std::uint32_t bone);
  // The bone of each matrix.
  const std::vector<std::uint32_t>& InfluenceMatrices() const { return matrixBones_; }

  // Values by name that a material hangs on its chunks.
  void SetProperty(PString name, float value);
  std::optional<float> GetProperty(PString name) const;

 private:
  struct FreeBytes {
    void operator()(std::uint8_t* bytes) const;
  };

  GeometryChunk(const VertexType& type, const GeometryChunkSize& size, const StandardChunkHint& hint);
  bool TakeMemory();

  VertexType vertexType_;
  GeometryChunkSize size_;
  StandardChunkHint hint_;
  std::uint32_t flags_;
  std::unique_ptr<std::uint8_t[], FreeBytes> memory_;  // that of the blocks and of the two arrays
  std::vector<std::span<std::uint8_t>> blocks_;
  std::span<std::uint16_t> indices_;
  std::span<Vector3> faceNormals_;
  std::vector<std::uint8_t> neighbours_;
  std::vector<std::uint32_t> matrixBones_;
  std::vector<std::pair<PString, float>> properties_;
};

// The vertices of a chunk that gets all that the hint asks for: position and texture sets in one block, as
// files hold them, and a block for each of the rest.
VertexType StandardVertexType(const StandardChunkHint& hint);

}  // namespace Nox
