#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/geometry_chunk.h"

// Moves rows of vertices between the layout of a file and that of a chunk.
namespace morvex {

// What stands for one vertex in a row of a file: items one behind the other.
struct RecordItem {
  Nox::StreamId id;
  std::uint32_t bytes;
};

// Into all vertices of the chunk; `stride` is the bytes of a record, of which the layout may name the first
// ones alone. Items for which the chunk has no stream of their size are left out.
void CopyRecordsIn(Nox::GeometryChunk& chunk, std::span<const std::uint8_t> records, std::size_t stride,
                   std::span<const RecordItem> layout);

// All vertices of the chunk, one record a vertex; zeros for what it has no stream of.
void CopyRecordsOut(const Nox::GeometryChunk& chunk, std::span<const RecordItem> layout,
                    std::vector<std::uint8_t>& out);

// Sets an item of 4 bytes of all vertices, if the chunk has it.
void FillStream(Nox::GeometryChunk& chunk, Nox::StreamId id, std::uint32_t word);

}  // namespace morvex
