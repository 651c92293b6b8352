#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tagdata/acs_chunk.h"

namespace morvex {

// A leaf in memory. What it is made with lies in the same block as the tag, since nearly all values are
// small and there are very many of them; data that is set later is shared.
class TDBDataTag final : public ACSChunk {
 public:
  // A leaf of kind null.
  static ChunkRef Make();
  // Copies the bytes.
  static ChunkRef Make(ChunkKind kind, const void* bytes, uint32_t size);
  // Copies the text and adds a NUL; the empty text has no data.
  static ChunkRef MakeString(std::string_view text);
  // Shares the bytes.
  static ChunkRef MakeShared(ChunkKind kind, const Raw& data);

  const uint8_t* GetData() const override;
  uint32_t GetDataSize() const override;
  ChunkKind GetKind() const override { return kind_; }
  void SetData(ChunkKind kind, const Raw& data) override;

  // The bytes behind the tag are part of its block, whose size the compiler doesn't know.
  static void operator delete(void* block);

 protected:
  Raw ShareData() const override;

 private:
  struct Behind {
    size_t bytes;
  };
  static void* operator new(size_t size, Behind behind);
  static void operator delete(void* block, Behind behind);

  TDBDataTag(ChunkKind kind, uint32_t size) : kind_(kind), size_(size) {}
  uint8_t* InlineBytes() { return reinterpret_cast<uint8_t*>(this + 1); }
  const uint8_t* InlineBytes() const { return reinterpret_cast<const uint8_t*>(this + 1); }

  ChunkKind kind_;
  uint32_t size_;  // of the bytes behind the tag; 0 once other data was set
  Raw data_;       // data that was set later
};

}  // namespace morvex
