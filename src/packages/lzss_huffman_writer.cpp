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

void LzssHuffmanWriter::Literals(std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) {
    const LzssCode code = main_.Encode(byte);
    bits_.Put(code.bits, code.count);
  }
}

void LzssHuffmanWriter::Match(unsigned length, unsigned offset) {
  const unsigned extra = length - kLzssMinMatch;
  const unsigned row = kCodeOfLength[extra];
  const LzssCode lengthCode = main_.Encode(kLzssFirstLengthCode + row);
  bits_.Put(lengthCode.bits | (extra - kLzssLengthCodes[row].base) << lengthCode.count,
            lengthCode.count + kLzssLengthCodes[row].extraBits);

  const LzssCode highCode = offsets_.Encode(offset >> lowOffsetBits_);
  const unsigned low = offset & ((1U << lowOffsetBits_) - 1);
  bits_.Put(highCode.bits | low << highCode.count, highCode.count + lowOffsetBits_);
}

void LzssHuffmanWriter::Finish() {
  const LzssCode code = main_.CodeOf(kLzssEndMark);
  bits_.Put(code.bits, code.count);
  bits_.Finish();
}

}  // namespace Nox
