#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "tagdata/chunk_format.h"
#include "tagdata/chunk_kind.h"

namespace morvex {

using ByteSpan = std::span<const uint8_t>;

// One chunk where it lies in a loaded body. Valid as long as the body is.
struct ChunkView {
  std::string_view storedName;  // as stored, as a rule with its NUL
  ChunkType type = ChunkType::kNull;
  ByteSpan data;  // as stored: a string with its NUL, an aligned chunk with its padding

  // Up to its first NUL.
  std::string_view Name() const { return storedName.substr(0, storedName.find('\0')); }
  bool NameIs(std::string_view name) const;
  ChunkKind Kind() const;
  bool IsContainer() const { return type == ChunkType::kContainer; }
  // The data as text, up to the first NUL.
  std::string_view Text() const;
  // The data of an aligned chunk without the padding, nothing for a null chunk, else the data as it is.
  ByteSpan Bytes(const uint8_t* bodyStart) const;
};

// Walks the chunks of one sequence in place; makes nothing and copies nothing. Safe on any bytes: it stops
// quietly at a chunk that doesn't fit, so a body need not have been validated.
//
//   for (ChunkWalker walker(body); walker.Next();) Use(walker.Chunk());
//
// A container's children are walked by a new walker over its data.
class ChunkWalker {
 public:
  // Begins at `offset`, which must be one that Offset gave for the same sequence.
  explicit ChunkWalker(ByteSpan sequence, size_t offset = 0) : sequence_(sequence), next_(offset) {}

  // Moves to the next chunk; false at the end.
  bool Next();
  const ChunkView& Chunk() const { return chunk_; }
  // Where the present chunk begins, counted from the start of the sequence.
  size_t Offset() const { return offset_; }

 private:
  ByteSpan sequence_;
  size_t offset_ = 0;
  size_t next_;
  ChunkView chunk_;
};

// True if every chunk of the sequence, at all depths up to kMaxSoupDepth, lies within its soup.
bool ValidateChunks(ByteSpan sequence);

// The body of a chunk file in memory, validated; an empty span with a null pointer if the image has a
// wrong header, is cut short or is damaged. `version` is set to the file's.
ByteSpan ChumpBody(ByteSpan image, uint32_t& version);

}  // namespace morvex
