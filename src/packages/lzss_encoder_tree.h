#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "packages/lzss_tree.h"

namespace Nox {

// The bits of one symbol, the first bit of the stream lowest.
struct LzssCode {
  std::uint32_t bits;
  std::uint32_t count;
};

// The tree on the writing side. It keeps the code of every place in the row, so that a symbol's code is there
// without a way up the tree: leaves, which move most, take the code of the place they come to, and only a
// moved inner node changes the codes of what hangs on it.
class LzssEncoderTree final : private LzssTree {
 public:
  explicit LzssEncoderTree(unsigned symbols) : LzssTree(symbols) { CodeAll(); }

  // The code of `symbol` in the tree as it stands.
  LzssCode CodeOf(unsigned symbol) const { return code_[leafNode_[symbol]]; }

  // The same, and counts the symbol.
  LzssCode Encode(unsigned symbol) {
    const LzssCode code = CodeOf(symbol);
    if (RebuildIsDue()) [[unlikely]] {
      Rebuild();
      CodeAll();
    }
    Count(symbol, code.count);
    return code;
  }

 private:
  void CodeAll();
  void CodeBelow(std::size_t node);
  void InnerMoved(std::size_t node) override { CodeBelow(node); }

  std::array<LzssCode, kRoot + 1> code_;
};

}  // namespace Nox
