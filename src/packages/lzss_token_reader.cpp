#include "packages/lzss_token_reader.h"

#include "packages/lzss_flag_reader.h"
#include "packages/lzss_format.h"
#include "packages/lzss_huffman_reader.h"

namespace Nox {

std::unique_ptr<LzssTokenReader> MakeLzssTokenReader(std::uint8_t header) {
  const int level = LzssHeaderLevel(header);
  const unsigned windowId = LzssHeaderWindowId(header);
  if (level == 0 || level > kLzssMaxLevel || windowId >= kLzssWindowCount) return nullptr;
  const LzssWindow& window = kLzssWindows[windowId];
  if (level > kLzssLastFlagLevel) return std::make_unique<LzssHuffmanReader>(window);
  if (windowId == 0) return std::make_unique<LzssNarrowReader>();
  return std::make_unique<LzssWideReader>(window);
}

}  // namespace Nox
