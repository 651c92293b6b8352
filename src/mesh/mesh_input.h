#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "engine/byte_reader.h"
#include "engine/mesh_file_support.h"
#include "engine/vector_math.h"
#include "mesh/mesh_format.h"
#include "mesh/mesh_result.h"

namespace morvex {

static_assert(std::endian::native == std::endian::little, "arrays are taken over as they lie");

// Reads a mesh file chunk by chunk. The first failure decides the result; all that is read behind it gives
// nothing, so a reader may check once behind a group of fields. Running out of bytes is a format error.
class MeshInput {
 public:
  struct Chunk {
    std::uint32_t version = 0;
    std::uint64_t end = 0;  // may lie behind the end of the file
  };

  explicit MeshInput(std::span<const std::uint8_t> file) : in_(file) {}

  std::uint8_t U8() { return in_.U8(); }
  std::uint32_t U32() { return in_.U32(); }
  float F32() { return in_.F32(); }
  std::string_view Text() { return Nox::MeshFileSupport::ReadPaddedString(in_); }
  Nox::Vector3 Vec3() { return Record<Nox::Vector3>(); }
  Nox::Quaternion Quat() { return Record<Nox::Quaternion>(); }
  Nox::Matrix3 Mat3() { return Record<Nox::Matrix3>(); }
  std::span<const std::uint8_t> Bytes(std::size_t count) { return in_.Bytes(count); }
  // A row of records of plain words.
  template <typename T>
  bool Array(std::vector<T>& out, std::uint32_t count);

  // Passes what stands around all chunks, and the tag of the kind of file. Gives the place where the mesh must end.
  std::uint64_t OpenWrapper(MeshFormat::Tag kind);
  // Passes a tag; another one is a format error.
  bool Tag(MeshFormat::Tag tag);
  // Whether that tag stands next; passes nothing.
  bool NextIs(MeshFormat::Tag tag) const;
  // Passes the tag, size and version of a chunk. A version outside of the limits is a version error.
  bool Open(MeshFormat::Tag tag, std::uint32_t firstVersion, std::uint32_t lastVersion, Chunk& chunk);
  bool Open(MeshFormat::Tag tag, Chunk& chunk) {
    return Open(tag, MeshFormat::kVersion, MeshFormat::kVersion, chunk);
  }
  // Moves to the end of a chunk. A chunk that ends before what was read of it is a format error.
  bool SkipTo(const Chunk& chunk);
  // A format error if the chunk's end isn't reached, or passed.
  bool ExpectEnd(const Chunk& chunk) { return ExpectPosition(chunk.end); }
  bool ExpectPosition(std::uint64_t end) { return (Ok() && in_.Position() == end) || Fail(); }

  std::uint64_t Position() const { return in_.Position(); }
  std::size_t Remaining() const { return in_.Remaining(); }

  bool Ok() const { return !in_.Failed(); }
  // Gives false, to be returned.
  bool Fail(MeshResult result = RES_FILE_FORMAT_ERROR);
  MeshResult Result() const { return Ok() ? RES_SUCCESS : result_; }

 private:
  template <typename T>
  T Record() {
    T record{};
    if (const auto bytes = in_.Bytes(sizeof record); !bytes.empty())
      std::memcpy(&record, bytes.data(), bytes.size());
    return record;
  }

  Nox::ByteReader in_;
  MeshResult result_ = RES_FILE_FORMAT_ERROR;  // of a reader that failed
};

template <typename T>
bool MeshInput::Array(std::vector<T>& out, std::uint32_t count) {
  const auto bytes = in_.Bytes(count * sizeof(T));
  out.resize(bytes.size() / sizeof(T));
  if (!bytes.empty()) std::memcpy(out.data(), bytes.data(), bytes.size());
  return Ok();
}

}  // namespace morvex
