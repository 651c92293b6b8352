#include <algorithm>

#include "packages/lzss_block.h"
#include "packages/lzss_encoder.h"
#include "packages/lzss_format.h"
#include "packages/lzss_sink.h"
#include "packages/lzss_token_writer.h"

namespace Nox {
namespace {

// Below this size nothing is coded, and below the second only with the smallest window and flags.
constexpr std::size_t kMinCoded = 7;
constexpr std::size_t kMinWithWideWindow = 256;

struct Method {
  int level;
  unsigned windowId;
};

Method MethodFor(int level, std::size_t size) {
  Method method{level, kLzssLevels[static_cast<std::size_t>(level)].windowId};
  if (size < kMinWithWideWindow) return {std::min(level, kLzssLastFlagLevel), 0};
  if (size <= kLzssWindows[method.windowId - 1].Size()) --method.windowId;
  return method;
}

// The coded form, or 0 if it doesn't fit.
std::size_t Code(std::span<std::uint8_t> dst, std::span<const std::uint8_t> src, Method method) {
  if (dst.empty()) return 0;
  dst[0] = LzssHeader(method.windowId, method.level);
  LzssSink sink(dst.data() + 1, dst.size() - 1);
  const auto writer = MakeLzssTokenWriter(method.level, method.windowId, sink);
  const LzssWindow& window = kLzssWindows[method.windowId];
  LzssEncoder encoder(window, kLzssLevels[static_cast<std::size_t>(method.level)].goodLength,
                      std::min(src.size(), LzssEncoder::BufferSize(window)), *writer);

  std::size_t start = 0;
  for (;;) {
    encoder.Run(src.data() + start, src.size() - start);
    if (sink.Failed()) return 0;
    if (start + encoder.Position() == src.size()) break;
    start += encoder.Slide();
  }
  encoder.Finish(src.data() + start);
  writer->Finish();
  return sink.Failed() ? 0 : 1 + sink.Held();
}

std::size_t Store(std::span<std::uint8_t> dst, std::span<const std::uint8_t> src) {
  if (dst.size() <= src.size()) return src.size();
  dst[0] = 0;
  std::copy(src.begin(), src.end(), dst.begin() + 1);
  return src.size() + 1;
}

}  // namespace

std::size_t LzssCompressInto(std::span<std::uint8_t> dst, std::span<const std::uint8_t> src, int level) {
  if (level < 0 || level > kLzssMaxLevel) level = kLzssMaxLevel;
  if (level != 0 && src.size() >= kMinCoded) {
    const std::size_t coded = Code(dst, src, MethodFor(level, src.size()));
    if (coded != 0) return coded;
  }
  return Store(dst, src);
}

}  // namespace Nox
