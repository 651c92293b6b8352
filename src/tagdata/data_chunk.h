#pragma once

#include <cstdint>

#include "tagdata/acs_chunk.h"
#include "tagdata/chunk_walker.h"

namespace morvex {

// A leaf of a loaded file, seen where it lies. Read-only. It keeps the file's block alive, but not the file
// with its changes, so that data may go into a change of the file it came from.
class TDBDataChunk final : public ACSChunk {
 public:
  // `body` is the block that holds the chunk.
  TDBDataChunk(const Raw& body, const ChunkView& chunk);
  // The same place with other data: text that had to be converted.
  TDBDataChunk(const ChunkView& chunk, const Raw& data);

  const uint8_t* GetData() const override { return bytes_.data(); }
  uint32_t GetDataSize() const override { return static_cast<uint32_t>(bytes_.size()); }
  ChunkKind GetKind() const override { return kind_; }

  // Where the chunk's data begins in the body, which is what it is known by.
  const uint8_t* Place() const { return place_; }

 protected:
  Raw ShareData() const override;

 private:
  Raw owner_;
  const uint8_t* place_;
  ByteSpan bytes_;
  ChunkKind kind_;
};

}  // namespace morvex
