#pragma once

#include <cstdint>
#include <memory>

#include "tagdata/acs_chunk.h"
#include "tagdata/chunk_walker.h"

namespace morvex {

class BinaryChanges;
class TStream;

// A loaded soup file.
class ACSFile : public Nox::ReferenceCountMP {
 public:
  ~ACSFile() override;
  // Reads a file from the stream's position. What can't be read leaves a file without a root.
  virtual void Read(TStream& stream) = 0;
  virtual void Reserved() {}  // keeps the third place of the interface
  // The root soup, or the null chunk if there is none.
  virtual ChunkRef GetRoot() = 0;
};

// The binary form of a soup (see chunk_format.h). The body is read into one block and validated once; the
// soup is a live view of it. Changes to the view don't touch the block: they go into a list beside it.
// Views keep the file alive, and data that was taken out keeps the block alive.
class TDBBinaryFile final : public ACSFile {
 public:
  TDBBinaryFile();
  ~TDBBinaryFile() override;

  // Leaves the stream behind the body. No memory is taken that the stream can't fill.
  void Read(TStream& stream) override;
  ChunkRef GetRoot() override;

  // Uses an image of a whole file where it lies, for one that is mapped or part of something bigger. False
  // if it is damaged. Bytes behind the body are ignored.
  bool ReadImage(const Raw& image);

  // Takes over a body that was made here and is known to be sound.
  void UseBody(const Raw& body);

  uint32_t Version() const { return version_; }
  ByteSpan Body() const { return {RawData(body_), RawSize(body_)}; }
  // Owner of the block.
  const Raw& BodyBlock() const { return body_; }
  // Null as long as nothing was changed.
  BinaryChanges* Changes() const { return changes_.get(); }
  BinaryChanges& MakeChanges();

 private:
  uint32_t version_ = 0;
  Raw body_;
  std::unique_ptr<BinaryChanges> changes_;
};

}  // namespace morvex
