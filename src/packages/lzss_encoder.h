#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "packages/lzss_format.h"
#include "packages/lzss_match_finder.h"
#include "packages/lzss_token_writer.h"

namespace Nox {

// The loop that turns bytes into literals and matches: at each position the match that the finder gives is
// taken at once. It works on a view of the data that moves up by slides, as soon as a position two windows
// behind its start is reached.
class LzssEncoder {
 public:
  LzssEncoder(const LzssWindow& window, unsigned goodLength, std::size_t bufferSize, LzssTokenWriter& writer)
      : windowSize_(window.Size()), finder_(window, goodLength, bufferSize), writer_(writer) {}

  // The largest buffer size that a window can use, and so the bytes (2 more, for the hash of the last
  // position) that a view must hold unless it ends with the data.
  static constexpr std::size_t BufferSize(const LzssWindow& window) {
    return 2 * std::size_t{window.Size()} + kLzssMaxMatch;
  }

  // Codes the view up to its end, `end` bytes from its start, or until a slide is due. `view` may have moved
  // in memory since the last call.
  void Run(const std::uint8_t* view, std::size_t end);
  // Gives by how much the view's start must move up; 0 if no slide is due.
  std::size_t Slide();
  // Emits the literals that are left. `view` as in Run.
  void Finish(const std::uint8_t* view);

  std::size_t Position() const { return position_; }

 private:
  const std::size_t windowSize_;
  LzssMatchFinder finder_;
  LzssTokenWriter& writer_;
  std::size_t position_ = 0;
  std::size_t literals_ = 0;  // bytes before the position that wait to be written
};

}  // namespace Nox
