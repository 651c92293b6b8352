#include <algorithm>
#include <cstring>

#include "packages/lzss_match_finder.h"

namespace Nox {
namespace {

// Positions are compared as signed 16-bit numbers by the rules of the format, so one from here on is
// as good as gone, and takes the rest of its chain along.
constexpr std::size_t kFirstLostPosition = 0x8000;

// Takes `delta` off each entry; what falls below 1 becomes 0. Goes by blocks, which compilers make vectors
// of.
void LowerEntries(std::uint16_t* entries, std::size_t count, std::uint16_t delta) {
  const auto lower = [delta](std::uint16_t& entry) {
    entry = static_cast<std::uint16_t>(std::max(entry, delta) - delta);
  };
  constexpr std::size_t kBlock = 64;
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    for (std::size_t k = 0; k < kBlock; ++k)
      lower(entries[i + k]);
  }
  for (; i < count; ++i)
    lower(entries[i]);
}

}  // namespace

// Notes the chains that the format loses at a slide from `position`.
void LzssMatchFinder::CutChains(std::size_t position) {
  if (anyCut_) cut_.reset();
  anyCut_ = false;
  for (std::size_t i = kFirstLostPosition; i < std::min(position, inserted_); ++i) {
    cut_.set(FormatHash(i));
    anyCut_ = true;
  }
}

std::size_t LzssMatchFinder::Slide(std::size_t position) {
  InsertTo(position);
  CutChains(position);
  const std::size_t delta = position - windowSize_;
  const std::size_t kept = bufferSize_ + 1 - delta;
  std::memmove(previous_.get(), previous_.get() + delta, kept * sizeof(Entry));
  LowerEntries(previous_.get(), kept, static_cast<std::uint16_t>(delta));
  LowerEntries(head_.get(), std::size_t{1} << slotBits_, static_cast<std::uint16_t>(delta));
  inserted_ -= delta;
  scanEnd_ = 0;
  view_ += delta;
  end_ -= delta;
  return delta;
}

}  // namespace Nox
