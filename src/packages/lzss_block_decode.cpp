#include <algorithm>
#include <cstring>

#include "engine/compress.h"
#include "packages/lzss_block.h"
#include "packages/lzss_format.h"
#include "packages/lzss_output.h"
#include "packages/lzss_token_reader.h"

namespace Nox {
namespace {

// The longest match, in the fewest bits that any coding has for one.
constexpr std::size_t kMaxExpansion = 8 * std::size_t{kLzssMaxMatch} / 13 + 1;

// A block that can't grow.
class FixedOutput : public LzssOutput {
 public:
  explicit FixedOutput(std::span<std::uint8_t> block) { SetBlock(block.data(), 0, block.size()); }

 protected:
  bool MakeRoom(std::size_t) override { return false; }
};

// A vector that doubles whenever the stream has filled it, up to the expected size.
class GrowingOutput : public LzssOutput {
 public:
  GrowingOutput(std::vector<std::uint8_t>& bytes, std::size_t start, std::size_t limit)
      : bytes_(bytes), limit_(limit) {
    Resize(std::min(start, limit));
  }

 protected:
  bool MakeRoom(std::size_t size) override {
    if (size > limit_ - Held()) return false;
    Resize(std::min(limit_, std::max(2 * bytes_.size(), Held() + size)));
    return true;
  }

 private:
  void Resize(std::size_t size) {
    const std::size_t held = Held();
    bytes_.resize(size);
    SetBlock(bytes_.data(), held, size);
  }

  std::vector<std::uint8_t>& bytes_;
  const std::size_t limit_;
};

bool Decode(std::span<const std::uint8_t> src, LzssOutput& output) {
  const auto reader = MakeLzssTokenReader(src[0]);
  if (reader == nullptr) return false;
  std::span<const std::uint8_t> input = src.subspan(1);
  return reader->Read(input, 0, output) == LzssTokenReader::Status::kDone;
}

bool Fill(std::span<const std::uint8_t> src, std::size_t expectedSize, std::vector<std::uint8_t>& out) {
  if (src.empty() || expectedSize / kMaxExpansion > src.size()) return false;
  if (LzssHeaderLevel(src[0]) == 0) {
    if (src.size() - 1 != expectedSize) return false;
    out.assign(src.begin() + 1, src.end());
    return true;
  }
  constexpr std::size_t kUsualExpansion = 4;
  GrowingOutput output(out, kUsualExpansion * src.size(), expectedSize);
  return Decode(src, output) && output.Held() == expectedSize;
}

}  // namespace

std::size_t LzssDecompressInto(std::span<std::uint8_t> dst, std::span<const std::uint8_t> src) {
  if (src.empty()) return Compressor::kDamaged;
  if (LzssHeaderLevel(src[0]) == 0) {
    const auto plain = src.subspan(1);
    if (plain.size() > dst.size()) return Compressor::kDamaged;
    std::copy(plain.begin(), plain.end(), dst.begin());
    return plain.size();
  }
  FixedOutput output(dst);
  return Decode(src, output) ? output.Held() : Compressor::kDamaged;
}

bool LzssDecompress(std::span<const std::uint8_t> src, std::size_t expectedSize,
                    std::vector<std::uint8_t>& out) {
  out.clear();
  if (Fill(src, expectedSize, out)) return true;
  out.clear();
  out.shrink_to_fit();
  return false;
}

}  // namespace Nox
