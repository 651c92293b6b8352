#include "packages/lzss_token_writer.h"

#include "packages/lzss_flag_writer.h"
#include "packages/lzss_format.h"
#include "packages/lzss_huffman_writer.h"

namespace Nox {

std::unique_ptr<LzssTokenWriter> MakeLzssTokenWriter(int level, unsigned windowId, LzssSink& sink) {
  const LzssWindow& window = kLzssWindows[windowId];
  if (level > kLzssLastFlagLevel) return std::make_unique<LzssHuffmanWriter>(window, sink);
  if (windowId == 0) return std::make_unique<LzssNarrowWriter>(sink);
  return std::make_unique<LzssWideWriter>(window, sink);
}

}  // namespace Nox
