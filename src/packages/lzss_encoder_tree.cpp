#include "packages/lzss_encoder_tree.h"

namespace Nox {

void LzssEncoderTree::CodeAll() {
  code_[kRoot] = {0, 0};
  CodeBelow(kRoot);
}

// Derives the codes below an inner node from its own. As deep as the tree, so at most kMaxCodeBits.
void LzssEncoderTree::CodeBelow(std::size_t node) {
  const LzssCode code = code_[node];
  const std::size_t child = child_[node];
  code_[child] = {code.bits, code.count + 1};
  code_[child + 1] = {code.bits | 1U << code.count, code.count + 1};
  if (!IsLeaf(child)) CodeBelow(child);
  if (!IsLeaf(child + 1)) CodeBelow(child + 1);
}

}  // namespace Nox
