#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "engine/byte_writer.h"
#include "engine/mesh_file_support.h"
#include "engine/vector_math.h"
#include "mesh/mesh_format.h"
#include "mesh/vertex_records.h"

namespace morvex {

// Writes a mesh file chunk by chunk behind what a container of bytes holds already.
class MeshOutput {
 public:
  explicit MeshOutput(std::vector<std::uint8_t>& out) : bytes_(out), out_(out) {}

  void U8(std::uint8_t value) { out_.U8(value); }
  void U16(std::uint16_t value) { out_.U16(value); }
  void U32(std::uint32_t value) { out_.U32(value); }
  // Of a container, whose files can't count further than 32 bits.
  void Count(std::size_t count) { out_.U32(static_cast<std::uint32_t>(count)); }
  void F32(float value) { out_.F32(value); }
  void Text(std::string_view text) { Nox::MeshFileSupport::WritePaddedString(out_, text); }
  void Tag(MeshFormat::Tag tag) { out_.Text(tag); }
  void Bytes(std::span<const std::uint8_t> bytes) { out_.Bytes(bytes); }
  void Zeros(std::size_t count) { out_.Zeros(count); }
  // Plain words without gaps: vectors, rotations, rows of them.
  template <typename T>
  void Words(const T& value) {
    Array(std::span<const T>(&value, 1));
  }
  template <typename T>
  void Array(std::span<const T> values) {
    out_.Bytes({reinterpret_cast<const std::uint8_t*>(values.data()), values.size_bytes()});
  }

  // All vertices of a chunk, as CopyRecordsOut has them.
  void Records(const Nox::GeometryChunk& chunk, std::span<const RecordItem> layout) {
    CopyRecordsOut(chunk, layout, bytes_);
  }

  // Tag and size, and version where there is one. Gives the mark for End.
  [[nodiscard]] std::size_t Begin(MeshFormat::Tag tag) {
    Tag(tag);
    return Nox::MeshFileSupport::MarkSizePos(out_);
  }
  [[nodiscard]] std::size_t Begin(MeshFormat::Tag tag, std::uint32_t version) {
    const std::size_t mark = Begin(tag);
    U32(version);
    return mark;
  }
  void End(std::size_t mark) { Nox::MeshFileSupport::WriteSizeAtMark(out_, mark); }

  std::size_t Size() const { return out_.Size(); }

 private:
  std::vector<std::uint8_t>& bytes_;
  Nox::ByteWriter<std::vector<std::uint8_t>> out_;
};

}  // namespace morvex
