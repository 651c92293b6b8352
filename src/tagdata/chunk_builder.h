#pragma once

#include <cstdint>
#include <string_view>

#include "tagdata/chunk_writer.h"
#include "tagdata/level_names.h"
#include "tagdata/soup_builder.h"

namespace morvex {

// Builds a soup in the form of a chunk file's body: one block with no object for each tag, seen through a
// view like any loaded file. That makes reading a text many times quicker than building a tree.
class ChunkBuilder final : public SoupBuilder {
 public:
  // `expected` bytes are set aside.
  explicit ChunkBuilder(size_t expected) { writer_.Reserve(expected); }

  void Leaf(std::string_view name, ChunkKind kind, const void* data, size_t size) override;
  void String(std::string_view name, std::string_view text) override;
  void Remove(std::string_view name) override;
  void Open(std::string_view name) override;
  void Close() override;
  TagContainer Finish() override;

  // False if some name was too long for a chunk, or all of it too much for a body. There is no soup then.
  bool Fits() const { return fits_ && writer_.Fits(); }

 private:
  bool Accepts(std::string_view name);
  uint32_t Place() const { return static_cast<uint32_t>(writer_.Bytes().size()); }
  void Replace(std::string_view name, uint32_t chunk);

  ChunkWriter writer_;
  LevelNames names_{writer_};
  size_t depth_ = 0;
  bool fits_ = true;
  bool struck_ = false;  // some chunk gave way to a later one of its name
};

}  // namespace morvex
