#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "packages/lzss_format.h"
#include "packages/lzss_output.h"
#include "packages/lzss_token_reader.h"

namespace Nox {

// Decodes a stream that comes in pieces.
class LzssStreamDecoder {
 public:
  using WriteBytes = std::function<bool(std::span<const std::uint8_t>)>;

  // Output goes to `write` by blocks; a false from it stops the stream.
  explicit LzssStreamDecoder(WriteBytes write);

  // False, then and ever after, if the stream is damaged or was stopped.
  bool Add(std::span<const std::uint8_t> data);
  // Says that no more will come: decodes the rest. False also for a stream that isn't complete.
  bool Finish();

 private:
  enum class State {
    kHeader,  // the first byte is awaited
    kStored,  // bytes go straight on
    kCoded,   // tokens
    kFailed,
  };

  // Keeps the last window of output for matches.
  class WindowOutput : public LzssOutput {
   public:
    explicit WindowOutput(const WriteBytes& write) : write_(write) {}
    void Start(const LzssWindow& window);
    bool Flush();

   protected:
    bool MakeRoom(std::size_t size) override;

   private:
    const WriteBytes& write_;
    std::vector<std::uint8_t> bytes_;
    std::size_t window_ = 0;
    std::size_t written_ = 0;  // bytes at the block's start that were handed on
  };

  bool Fail();
  State Start(std::uint8_t header);
  bool Decode(std::size_t reserve);

  WriteBytes write_;
  State state_ = State::kHeader;
  std::unique_ptr<LzssTokenReader> reader_;
  WindowOutput output_;
  std::vector<std::uint8_t> input_;  // not yet decoded
};

}  // namespace Nox
