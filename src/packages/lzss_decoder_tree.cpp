#include "packages/lzss_decoder_tree.h"

#include <algorithm>

namespace Nox {

// Each round makes of the ways by some bits those by one bit more.
void LzssDecoderTree::FillTable() {
  table_[0] = {child_[kRoot], 0};
  lowest_ = kRoot;
  for (std::size_t filled = 1; filled < table_.size(); filled *= 2) {
    for (std::size_t i = 0; i < filled; ++i) {
      const Way way = table_[i];
      if (way.child >= kFirstLeaf) {
        table_[filled + i] = way;
        continue;
      }
      lowest_ = std::min(lowest_, way.child);
      table_[i] = {child_[way.child], way.steps + 1};
      table_[filled + i] = {child_[way.child + 1], way.steps + 1};
    }
  }
}

}  // namespace Nox
