#include "packages/lzss_match_finder.h"

#include <algorithm>
#include <bit>

#include "packages/lzss_bytes.h"

namespace Nox {
namespace {

// Chains that FindLonger compares, counted from the end of the match. Long repeats with rare breaks (sparse
// bytes, configurations) gain much from looking far; with very long runs the looking itself begins to cost.
constexpr int kChainsToCompare = 100;

unsigned SlotBitsFor(std::size_t bufferSize) {
  if (bufferSize < 2000) return 9;
  return bufferSize < 24000 ? 12 : 15;
}

std::uint32_t Load24(const std::uint8_t* p) {
  return LzssLoad16(p) | std::uint32_t{p[2]} << 16;
}

// The number of equal bytes, at most `limit`.
unsigned CountEqual(const std::uint8_t* a, const std::uint8_t* b, unsigned limit) {
  unsigned count = 0;
  for (; count + 8 <= limit; count += 8) {
    const std::uint64_t difference = LzssLoad64(a + count) ^ LzssLoad64(b + count);
    if (difference != 0) return count + static_cast<unsigned>(std::countr_zero(difference)) / 8;
  }
  while (count < limit && a[count] == b[count])
    ++count;
  return count;
}

}  // namespace

LzssMatchFinder::LzssMatchFinder(const LzssWindow& window, unsigned goodLength, std::size_t bufferSize)
    : windowSize_(window.Size()),
      goodLength_(goodLength),
      bufferSize_(bufferSize),
      slotBits_(SlotBitsFor(bufferSize)),
      head_(std::make_unique<Entry[]>(std::size_t{1} << slotBits_)),
      previous_(std::make_unique<Entry[]>(bufferSize + 1)) {}

// Of `bytes` the lowest three count.
inline void LzssMatchFinder::Insert(std::size_t position, std::uint32_t bytes) {
  constexpr std::uint32_t kMix = 0x9E3779B1;
  Entry& head = head_[(bytes << 8) * kMix >> (32 - slotBits_)];
  previous_[position + 1] = head;
  head = static_cast<Entry>(position + 1);
}

// Going ahead does no harm, since a search looks only at what stands before its own entry; and many at a time
// let the machine overlap the accesses to distant slots.
bool LzssMatchFinder::InsertSome() {
  constexpr std::size_t kMost = 64;
  const std::size_t stop = std::min({inserted_ + kMost, end_ - 2, bufferSize_});
  if (stop <= inserted_) return false;
  std::size_t i = inserted_;
  for (const std::size_t fourThere = std::min(stop, end_ - 3); i < fourThere; ++i)
    Insert(i, LzssLoad32(view_ + i));
  for (; i < stop; ++i)
    Insert(i, Load24(view_ + i));
  inserted_ = stop;
  return true;
}

// Sets the bit of a position if the head of its chain is the same string, or if there is more of the chain.
void LzssMatchFinder::Scan(std::size_t position) {
  constexpr std::size_t kMost = 32;
  InsertTo(position + kMost);
  scanned_ = position;
  scanEnd_ = std::min<std::size_t>({inserted_, position + kMost, 2 * windowSize_});
  std::uint64_t hopeless = 0;
  const std::size_t count = std::min(scanEnd_, end_ - 3) - position;  // that have four bytes to load
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint8_t* const here = view_ + position + i;
    const unsigned entry = previous_[position + i + 1];
    const std::size_t low = std::max<std::size_t>(position + i + 1, windowSize_) - windowSize_;
    const std::uint32_t difference = LzssLoad32(here) ^ LzssLoad32(view_ + entry - (entry != 0));
    const bool hope = (entry > low) & ((difference << 8 == 0) | (previous_[entry] > low));
    hopeless |= std::uint64_t{!hope} << i;
  }
  hopeful_ = ~hopeless;
}

std::size_t LzssMatchFinder::CountHopeless(std::size_t position) {
  if (position >= scanEnd_) Scan(position);
  const auto hopeless = static_cast<std::size_t>(std::countr_zero(hopeful_ >> (position - scanned_)));
  return std::min(hopeless, scanEnd_ - position);
}

inline unsigned LzssMatchFinder::LowestEntry(std::size_t position) const {
  if (anyCut_ && cut_[FormatHash(position)]) [[unlikely]]
    return windowSize_;
  return static_cast<unsigned>(std::max<std::size_t>(position + 1, windowSize_) - windowSize_);
}

// The strings that a longer match must have start at depths from 0 to `last`, where the string ends in the
// first byte behind `match`. A chain's next entry, less its depth, tells where a candidate begins.
inline LzssMatchFinder::Chain LzssMatchFinder::PickChain(unsigned entry, LzssMatch match, unsigned low) {
  const int last = static_cast<int>(match.length) - 2;
  InsertTo(entry + static_cast<unsigned>(last));
  const Entry* const own = previous_.get() + entry;
  const Entry* const matched = own - match.offset;
  const auto beginning = [last, matched](int number) { return matched[last - number] - (last - number); };

  // A beginning, and in the low byte the chain's number, counted from `last` down.
  int farthest = (own[last] - last) * 256;
  int number = 1;
  // Most matches are short, and which of few chains wins is chance; so these are compared without branches.
  for (; number <= last && number < 16; ++number)
    farthest = std::min(farthest, beginning(number) * 256 + number);
  for (; number <= last && number < kChainsToCompare; ++number) {
    if (beginning(number) < farthest >> 8) farthest = beginning(number) * 256 + number;
  }
  if (farthest >> 8 <= static_cast<int>(low)) return {0, 0};
  const int depth = last - (farthest & 255);
  return {static_cast<unsigned>(depth), static_cast<unsigned>((farthest >> 8) + depth)};
}

LzssMatch LzssMatchFinder::FindLonger(std::size_t position, LzssMatch match, unsigned low, unsigned limit) {
  const std::uint8_t* const here = view_ + position;
  const auto entry = static_cast<unsigned>(position + 1);
  const unsigned enough = std::min(goodLength_, limit);
  do {
    const Chain chain = PickChain(entry, match, low);
    if (chain.next == 0) break;
    const std::uint32_t tail = LzssLoad32(here + match.length - 3);
    // From an entry of the chain to a candidate's tail; wraps below 0.
    const std::size_t toTail = std::size_t{match.length} - 4 - chain.depth;
    const unsigned lowest = low + chain.depth;
    unsigned length = 0;
    unsigned next = chain.next;
    for (; next > lowest; next = previous_[next]) {
      if (LzssLoad32(view_ + (next + toTail)) != tail) continue;
      length = CountEqual(view_ + next - 1 - chain.depth, here, limit);
      if (length > match.length) break;
    }
    if (next <= lowest) break;
    match = {length, entry - (next - chain.depth)};
  } while (match.length < enough);
  return match;
}

LzssMatch LzssMatchFinder::Find(std::size_t position) {
  InsertTo(position + 1);
  const std::uint8_t* const here = view_ + position;
  const unsigned low = LowestEntry(position);
  unsigned entry = previous_[position + 1];
  for (;; entry = previous_[entry]) {
    if (entry <= low) return {};
    if (Load24(view_ + entry - 1) == Load24(here)) break;
  }
  const auto limit = static_cast<unsigned>(std::min(end_, bufferSize_) - position);
  const LzssMatch match{CountEqual(view_ + entry - 1, here, limit),
                        static_cast<unsigned>(position + 1) - entry};
  return match.length < std::min(goodLength_, limit) ? FindLonger(position, match, low, limit) : match;
}

// The hash by which the format tells chains apart.
unsigned LzssMatchFinder::FormatHash(std::size_t position) const {
  const std::uint8_t* const at = view_ + position;
  const unsigned shift = slotBits_ / 3;
  return (unsigned{at[0]} << 2 * shift ^ unsigned{at[1]} << shift ^ at[2]) & ((1U << slotBits_) - 1);
}

}  // namespace Nox
