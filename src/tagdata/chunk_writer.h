#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tagdata/chunk_format.h"
#include "tagdata/chunk_kind.h"
#include "tagdata/raw.h"

namespace morvex {

class ACSChunk;
class TStream;

// Appends chunks one by one and patches the sizes of the containers around them. Big shared data isn't
// copied: it is kept by reference until it is written out, so writing a package doesn't double it.
//
//   ChunkWriter writer;
//   writer.BeginContainer("kuid-table");
//   writer.Int("0", 7);
//   writer.EndContainer();
//   writer.WriteFile(stream);
class ChunkWriter {
 public:
  // A chunk whose name is too long for the file is dropped with all that it holds. Every container that is
  // begun must be ended.
  void BeginContainer(std::string_view name);
  void EndContainer();
  void Null(std::string_view name);
  void Int(std::string_view name, int32_t value);
  void Float(std::string_view name, float value);
  // The text and its NUL; the empty text has no data.
  void String(std::string_view name, std::string_view text);
  // Data of any kind but a container, as it stands.
  void Data(std::string_view name, ChunkKind kind, const void* bytes, size_t size);
  void Data(std::string_view name, ChunkKind kind, const Raw& data);
  void Leaf(std::string_view name, const ACSChunk& leaf);

  void Reserve(size_t bytes) { bytes_.resize(std::max(used_ + bytes, bytes_.size())); }
  // The chunks so far, without big shared data.
  std::string_view Bytes() const { return {bytes_.data(), used_}; }
  std::string_view NameAt(size_t chunk) const;
  // Overwrites the type of the chunk at this place in Bytes.
  void SetType(size_t chunk, ChunkType type);
  // The chunks without a file header; the writer is empty then. Not for one that took shared data.
  std::string TakeBody();

  // Bytes of all chunks so far.
  uint64_t Size() const { return used_ + sharedSize_; }
  // False if a chunk or the body grew past what the format can say; such a file must not be written.
  bool Fits() const;

  // Hands a whole file, header and body, to `put`, part by part, until it answers false. False then, or if
  // the file doesn't fit the format, in which case `put` isn't called.
  [[nodiscard]] bool WriteParts(const std::function<bool(std::string_view)>& put) const;
  // The same at the stream's position; false too if the stream takes less than all of it.
  [[nodiscard]] bool WriteFile(TStream& stream) const;
  // The same into memory; empty if it doesn't fit the format.
  std::string FileImage() const;

 private:
  struct Shared {
    size_t place;  // in Bytes, in front of which the data stands
    Raw data;
  };
  struct Open {
    size_t sizeField;
    uint64_t sizeBefore;
  };

  // The head of a chunk and room for data. Null if the name is too long.
  char* AppendChunk(std::string_view name, ChunkKind kind, size_t dataSize, size_t room);
  char* Grow(size_t count);
  std::string Header() const;

  std::string bytes_;  // with room at its end, so that it needn't be filled before each write
  size_t used_ = 0;
  std::vector<Shared> shared_;
  uint64_t sharedSize_ = 0;
  std::vector<Open> open_;
  uint32_t dropped_ = 0;  // containers, below one whose name was too long, still to be ended
};

}  // namespace morvex
