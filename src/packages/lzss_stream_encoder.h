#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "packages/lzss_encoder.h"
#include "packages/lzss_sink.h"
#include "packages/lzss_token_writer.h"

namespace Nox {

// Codes data that comes in pieces. The bytes depend only on the data and the level, not on the pieces: the
// encoder works when its buffer is full, and so always sees as far ahead as a match may reach.
class LzssStreamEncoder {
 public:
  using WriteBytes = std::function<bool(std::span<const std::uint8_t>)>;

  // `level` is 1 to 9. Output goes to `write` by blocks; a false from it stops the stream.
  LzssStreamEncoder(int level, WriteBytes write);

  bool Add(std::span<const std::uint8_t> data);
  // Writes all that is left. Nothing may be added afterwards.
  bool Finish();

 private:
  class BlockSink : public LzssSink {
   public:
    explicit BlockSink(WriteBytes write);
    bool Flush();

   protected:
    bool Drain() override { return Flush(); }

   private:
    // Room for the largest group of the flag coding, without its word.
    std::array<std::uint8_t, 4148> block_;
    WriteBytes write_;
  };

  void Work();

  BlockSink sink_;
  std::unique_ptr<LzssTokenWriter> writer_;
  LzssEncoder encoder_;
  std::vector<std::uint8_t> buffer_;
  std::size_t held_ = 0;  // bytes in the buffer
};

}  // namespace Nox
