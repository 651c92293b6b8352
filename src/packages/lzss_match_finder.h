#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "packages/lzss_format.h"

namespace Nox {

struct LzssMatch {
  unsigned length = 0;  // 0 for none, else at least kLzssMinMatch
  unsigned offset = 0;
};

// Finds, for a position, the longest earlier string in the window, the nearest of equal ones; or, looking
// from the nearest on, the first that has the good length.
//
// Positions count from the start of a view of the data, which Slide moves on. All positions with the same
// three bytes form a chain, with a few others that share their slot of the table. A plain search walks the
// chain of its own three bytes; once it has a match of some length, any longer one must agree in all strings
// of three bytes up to there, so this search goes on along whichever of their chains leads back the farthest
// at once.
class LzssMatchFinder {
 public:
  // `bufferSize` bounds positions: no match reaches past it from the view's start.
  LzssMatchFinder(const LzssWindow& window, unsigned goodLength, std::size_t bufferSize);

  // The bytes that the next calls work on. `end` counts from the view's start.
  void SetView(const std::uint8_t* view, std::size_t end) {
    view_ = view;
    end_ = end;
  }

  // In these, `position` must lie below two windows and be at least 3 bytes before the end, and never fall.
  LzssMatch Find(std::size_t position);
  // How many positions from there on surely have no match. Looks at some of them together, which takes less
  // time than to search from each in vain.
  std::size_t CountHopeless(std::size_t position);

  // Moves the view's start up so that `position` becomes one window; gives the distance.
  std::size_t Slide(std::size_t position);

 private:
  // Entries are positions + 1; 0 ends a chain.
  using Entry = std::uint16_t;

  void InsertTo(std::size_t position) {
    while (inserted_ < position && InsertSome()) {
    }
  }
  bool InsertSome();
  void Insert(std::size_t position, std::uint32_t bytes);
  void Scan(std::size_t position);
  unsigned LowestEntry(std::size_t position) const;
  LzssMatch FindLonger(std::size_t position, LzssMatch match, unsigned low, unsigned limit);
  struct Chain {
    unsigned depth;  // of its string in the match
    unsigned next;   // its next entry, or 0 if no match can be longer
  };
  Chain PickChain(unsigned entry, LzssMatch match, unsigned low);
  unsigned FormatHash(std::size_t position) const;
  void CutChains(std::size_t position);

  const unsigned windowSize_;
  const unsigned goodLength_;
  const std::size_t bufferSize_;
  const unsigned slotBits_;
  const std::uint8_t* view_ = nullptr;
  std::size_t end_ = 0;
  std::size_t inserted_ = 0;  // positions below it are in their chains
  std::unique_ptr<Entry[]> head_;
  std::unique_ptr<Entry[]> previous_;

  // What the last Scan found: a bit for each position, set if there may be a match.
  std::size_t scanned_ = 0;
  std::size_t scanEnd_ = 0;
  std::uint64_t hopeful_ = 0;

  bool anyCut_ = false;
  std::bitset<1U << 15> cut_;  // hashes whose chains begin only at the last slide
};

}  // namespace Nox
