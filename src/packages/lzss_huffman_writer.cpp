#include "packages/lzss_huffman_writer.h"

#include <array>

namespace Nox {
namespace {

// The length code of each length - kLzssMinMatch.
constexpr std::array<std::uint8_t, 256> kCodeOfLength = [] {
  std::array<std::uint8_t, 256> codes{};
  for (unsigned code = 0; code < kLzssLengthCodes.size(); ++code) {
    for (unsigned length = kLzssLengthCodes[code].base; length < codes.size(); ++length) {
      codes[length] = static_cast<std::uint8_t>(code);
    }
  }
  return codes;
}();

}  // namespace

void LzssHuffmanWriter::Write(std::span<const LzssToken> tokens, const std::uint8_t* data) {
  for (const LzssToken& token : tokens) {
    for (unsigned i = 0; i < token.literals; ++i)
      Put(main_.Encode(data[i]), 0, 0);
    if (token.length != 0) Match(token.length, token.offset);
    data += token.literals + token.length;
  }
}

inline void LzssHuffmanWriter::Match(unsigned length, unsigned offset) {
  const unsigned extra = length - kLzssMinMatch;
  const unsigned row = kCodeOfLength[extra];
  Put(main_.Encode(kLzssFirstLengthCode + row), extra - kLzssLengthCodes[row].base,
      kLzssLengthCodes[row].extraBits);
  Put(offsets_.Encode(offset >> lowOffsetBits_), offset & ((1U << lowOffsetBits_) - 1), lowOffsetBits_);
}

inline void LzssHuffmanWriter::Put(LzssCode code, unsigned extra, unsigned extraBits) {
  bits_.Put(code.bits | std::uint64_t{extra} << code.count, code.count + extraBits);
}

void LzssHuffmanWriter::Finish() {
  Put(main_.CodeOf(kLzssEndMark), 0, 0);
  bits_.Finish();
}

}  // namespace Nox
