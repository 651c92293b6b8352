#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "packages/lzss_format.h"
#include "packages/lzss_match_finder.h"
#include "packages/lzss_token_writer.h"

namespace Nox {

// Gathers tokens, so that finding and writing each go on for a while. What it still holds is written at its
// end.
class LzssTokenBatch {
 public:
  // `data` is what the tokens will stand for.
  LzssTokenBatch(LzssTokenWriter& writer, const std::uint8_t* data) : writer_(writer), data_(data) {}
  LzssTokenBatch(const LzssTokenBatch&) = delete;
  LzssTokenBatch& operator=(const LzssTokenBatch&) = delete;
  ~LzssTokenBatch() { Write(); }

  void AddLiterals(std::size_t count) { Add(count, 0, 0); }

  // A long match goes out in pieces; a rest too short to be one is left for the next position. Gives the
  // bytes that the match covers.
  std::size_t AddMatch(std::size_t literalsBefore, LzssMatch match) {
    std::size_t rest = match.length;
    for (; rest >= kLzssMinMatch; literalsBefore = 0) {
      const std::size_t piece = std::min<std::size_t>(rest, kLzssMaxMatch);
      Add(literalsBefore, piece, match.offset);
      rest -= piece;
    }
    return match.length - rest;
  }

 private:
  void Add(std::size_t literals, std::size_t length, unsigned offset) {
    tokens_[count_++] = {static_cast<std::uint16_t>(literals), static_cast<std::uint16_t>(length),
                         static_cast<std::uint16_t>(offset)};
    size_ += literals + length;
    if (count_ == tokens_.size()) Write();
  }
  void Write() {
    writer_.Write({tokens_.data(), count_}, data_);
    data_ += size_;
    size_ = 0;
    count_ = 0;
  }

  LzssTokenWriter& writer_;
  const std::uint8_t* data_;
  std::size_t size_ = 0;  // bytes that the tokens stand for
  std::size_t count_ = 0;
  std::array<LzssToken, 256> tokens_;
};

}  // namespace Nox
