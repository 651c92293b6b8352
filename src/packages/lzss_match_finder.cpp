#include "packages/lzss_match_finder.h"

#include <algorithm>
#include <bit>

#include "packages/lzss_bytes.h"

namespace Nox {
namespace {

// Positions are compared as signed 16-bit numbers by the rules of the format, so one from here on is
// as good as gone, and takes the rest of its chain along.
constexpr std::size_t kFirstLostPosition = 0x8000;

// Strings that PickChain looks at, counted from the end of the match. Long repeats with rare breaks (sparse
// bytes, configurations) gain much from looking far; with very long runs the looking itself begins to cost.
constexpr int kChainsToCompare = 100;

unsigned ShiftFor(std::size_t bufferSize) {
  if (bufferSize < 2000) return 3;
  return bufferSize < 24000 ? 4 : 5;
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

// Takes `delta` off an entry; what falls below 1 becomes 0.
std::uint16_t Lower(std::uint16_t entry, unsigned delta) {
  return entry > delta ? static_cast<std::uint16_t>(entry - delta) : std::uint16_t{0};
}

// Lowers each entry of `from` into `to`, which may be the same or lie in front of it. Goes by blocks, which
// compilers make vectors of.
void LowerEntries(const std::uint16_t* from, std::uint16_t* to, std::size_t count, unsigned delta) {
  constexpr std::size_t kBlock = 64;
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    std::array<std::uint16_t, kBlock> block;
    std::copy_n(from + i, kBlock, block.begin());
    for (std::uint16_t& entry : block)
      entry = Lower(entry, delta);
    std::copy_n(block.begin(), kBlock, to + i);
  }
  for (; i < count; ++i)
    to[i] = Lower(from[i], delta);
}

}  // namespace

// A search under way. The candidate is where the chain's entry stands, less `depth`.
struct LzssMatchFinder::Search {
  const std::uint8_t* here;
  unsigned entry;     // of the position itself
  unsigned low;       // candidates must lie above
  unsigned best = 2;  // length so far
  unsigned bestEntry = 0;
  unsigned depth = 0;  // which of the strings of three bytes the chain belongs to
  unsigned next;       // entry on that chain, 0 at its end
};

LzssMatchFinder::LzssMatchFinder(const LzssWindow& window, unsigned goodLength, std::size_t bufferSize)
    : windowSize_(window.Size()),
      goodLength_(goodLength),
      bufferSize_(bufferSize),
      shift_(ShiftFor(bufferSize)),
      mask_(0xFFFFU >> (16 - 3 * shift_)),
      head_(std::make_unique<Entry[]>(mask_ + std::size_t{1})),
      previous_(std::make_unique_for_overwrite<Entry[]>(bufferSize + 1)) {}

void LzssMatchFinder::InsertTo(std::size_t position) {
  if (position <= inserted_) return;
  // Going ahead does no harm, since a search looks only at what stands before its own entry; and a batch lets
  // the machine overlap the accesses to distant hashes.
  constexpr std::size_t kBatch = 32;
  const std::size_t stop = std::min({position + kBatch, end_ - 2, bufferSize_});
  if (stop <= inserted_) return;
  const std::uint8_t* const third = view_ + 2;
  unsigned hash = unsigned{view_[inserted_]} << shift_ ^ view_[inserted_ + 1];
  for (std::size_t i = inserted_; i < stop; ++i) {
    hash = (hash << shift_ ^ third[i]) & mask_;
    Entry& head = head_[hash];
    previous_[i + 1] = head;
    head = static_cast<Entry>(i + 1);
  }
  inserted_ = stop;
}

unsigned LzssMatchFinder::LowestEntry(std::size_t position) const {
  if (anyCut_ && cut_[HashAt(position)]) return windowSize_;
  return position + 1 > windowSize_ ? static_cast<unsigned>(position + 1 - windowSize_) : 0;
}

LzssMatch LzssMatchFinder::Find(std::size_t position) {
  InsertTo(position + 1);
  Search s{.here = view_ + position,
           .entry = static_cast<unsigned>(position + 1),
           .low = LowestEntry(position),
           .next = previous_[position + 1]};
  const auto limit = static_cast<unsigned>(std::min(end_, bufferSize_) - position);
  const unsigned enough = std::min(goodLength_, limit);

  // On the position's own chain, two equal bytes mean three.
  while (s.next > s.low) {
    const std::uint8_t* candidate = view_ + s.next - 1;
    if (LzssLoad16(candidate) == LzssLoad16(s.here)) {
      s.best = CountEqual(candidate, s.here, limit);
      s.bestEntry = s.next;
      break;
    }
    s.next = previous_[s.next];
  }
  if (s.bestEntry == 0) return {};

  while (s.best < enough && PickChain(s)) {
    const std::uint32_t tail = LzssLoad32(s.here + s.best - 3);
    const std::size_t toTail =
        std::size_t{s.best} - 4 - s.depth;  // from an entry of the chain; wraps below 0
    const unsigned low = s.low + s.depth;
    unsigned length = 0;
    unsigned next = s.next;
    for (; next > low; next = previous_[next]) {
      if (LzssLoad32(view_ + (next + toTail)) != tail) continue;
      length = CountEqual(view_ + next - 1 - s.depth, s.here, limit);
      if (length > s.best) break;
    }
    if (next <= low) break;
    s.best = length;
    s.bestEntry = next - s.depth;
  }
  return {s.best, s.entry - s.bestEntry};
}

// Chooses the chain to follow for something longer than the best; false if there can't be anything.
bool LzssMatchFinder::PickChain(Search& s) {
  const int last = static_cast<int>(s.best) - 2;  // the string that ends in the first byte behind the match
  InsertTo(s.entry + static_cast<unsigned>(last));
  int farthest = previous_[s.entry + static_cast<unsigned>(last)] - last;
  s.depth = static_cast<unsigned>(last);
  for (int depth = last - 1; depth >= 0 && last - depth < kChainsToCompare; --depth) {
    const int candidate = previous_[s.bestEntry + static_cast<unsigned>(depth)] - depth;
    if (candidate < farthest) {
      farthest = candidate;
      s.depth = static_cast<unsigned>(depth);
    }
  }
  s.next = static_cast<unsigned>(farthest + static_cast<int>(s.depth));
  return farthest > static_cast<int>(s.low);
}

// Notes the chains that the format loses at a slide from `position`.
void LzssMatchFinder::CutChains(std::size_t position) {
  if (anyCut_) cut_.reset();
  anyCut_ = false;
  const std::size_t stop = std::min(position, inserted_);
  for (std::size_t i = kFirstLostPosition; i < stop; ++i) {
    cut_.set(HashAt(i));
    anyCut_ = true;
  }
}

std::size_t LzssMatchFinder::Slide(std::size_t position) {
  InsertTo(position);
  CutChains(position);
  const std::size_t delta = position - windowSize_;
  LowerEntries(head_.get(), head_.get(), mask_ + std::size_t{1}, static_cast<unsigned>(delta));
  LowerEntries(previous_.get() + delta, previous_.get(), bufferSize_ + 1 - delta,
               static_cast<unsigned>(delta));
  inserted_ -= delta;
  view_ += delta;
  end_ -= delta;
  return delta;
}

}  // namespace Nox
