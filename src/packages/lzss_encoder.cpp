#include "packages/lzss_encoder.h"

#include <algorithm>

namespace Nox {

void LzssEncoder::Run(const std::uint8_t* view, std::size_t end) {
  finder_.SetView(view, end);
  while (position_ < end) {
    if (end - position_ < kLzssMinMatch) {
      literals_ += end - position_;
      position_ = end;
      return;
    }
    if (literals_ == kLzssMaxRun) EmitLiterals(view);
    if (position_ >= 2 * windowSize_) return;

    const LzssMatch match = finder_.Find(position_);
    if (match.length == 0) {
      ++position_;
      ++literals_;
      continue;
    }
    EmitLiterals(view);
    position_ += EmitMatch(match);
  }
}

std::size_t LzssEncoder::Slide() {
  if (position_ < 2 * windowSize_) return 0;
  const std::size_t delta = finder_.Slide(position_);
  position_ -= delta;
  return delta;
}

void LzssEncoder::Finish(const std::uint8_t* view) {
  EmitLiterals(view);
}

void LzssEncoder::EmitLiterals(const std::uint8_t* view) {
  while (literals_ != 0) {
    const std::size_t count = std::min<std::size_t>(literals_, kLzssMaxRun);
    writer_.Literals({view + position_ - literals_, count});
    literals_ -= count;
  }
}

// A long match goes out in pieces; a rest too short to be one is left for the next position. Gives the bytes
// covered.
std::size_t LzssEncoder::EmitMatch(LzssMatch match) {
  std::size_t rest = match.length;
  while (rest >= kLzssMinMatch) {
    const std::size_t piece = std::min<std::size_t>(rest, kLzssMaxMatch);
    writer_.Match(static_cast<unsigned>(piece), match.offset);
    rest -= piece;
  }
  return match.length - rest;
}

}  // namespace Nox
