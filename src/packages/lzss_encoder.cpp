#include "packages/lzss_encoder.h"

#include <algorithm>

#include "packages/lzss_token_batch.h"

namespace Nox {
namespace {

// After so many literals, more are likely, and worth being looked for.
constexpr std::size_t kLiteralsBeforeScan = 4;

}  // namespace

void LzssEncoder::Run(const std::uint8_t* view, std::size_t end) {
  finder_.SetView(view, end);
  LzssTokenBatch batch(writer_, view + position_ - literals_);
  std::size_t position = position_;
  std::size_t literals = literals_;
  while (position < end) {
    if (end - position < kLzssMinMatch) {
      literals += end - position;
      position = end;
      break;
    }
    if (literals >= kLzssMaxRun) {
      batch.AddLiterals(kLzssMaxRun);
      literals -= kLzssMaxRun;
    }
    if (position >= 2 * windowSize_) break;

    const std::size_t hopeless = literals < kLiteralsBeforeScan ? 0 : finder_.CountHopeless(position);
    if (hopeless != 0) {
      position += hopeless;
      literals += hopeless;
      continue;
    }
    const LzssMatch match = finder_.Find(position);
    if (match.length == 0) {
      ++position;
      ++literals;
      continue;
    }
    position += batch.AddMatch(literals, match);
    literals = 0;
  }
  position_ = position;
  literals_ = literals;
}

std::size_t LzssEncoder::Slide() {
  if (position_ < 2 * windowSize_) return 0;
  const std::size_t delta = finder_.Slide(position_);
  position_ -= delta;
  return delta;
}

void LzssEncoder::Finish(const std::uint8_t* view) {
  LzssTokenBatch batch(writer_, view + position_ - literals_);
  while (literals_ != 0) {
    const std::size_t count = std::min<std::size_t>(literals_, kLzssMaxRun);
    batch.AddLiterals(count);
    literals_ -= count;
  }
}

}  // namespace Nox
