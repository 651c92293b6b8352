#include "packages/lzss_huffman_reader.h"

namespace Nox {

LzssTokenReader::Status LzssHuffmanReader::Read(std::span<const std::uint8_t>& input, std::size_t reserve,
                                                LzssOutput& output) {
  if (ended_) return Status::kDone;
  bits_.Begin(input);
  const Status status = ReadTokens(reserve, output);
  input = input.subspan(bits_.End());
  ended_ = status == Status::kDone;
  return status;
}

LzssTokenReader::Status LzssHuffmanReader::ReadTokens(std::size_t reserve, LzssOutput& output) {
  while (reserve == 0 || bits_.Remaining() > reserve) {
    const unsigned symbol = ReadSymbol(main_);
    if (symbol < kLzssFirstLengthCode) {
      if (!output.Literal(static_cast<std::uint8_t>(symbol))) return Status::kDamaged;
    } else if (symbol < kLzssEndMark) {
      if (!ReadMatch(symbol, output)) return Status::kDamaged;
    } else {
      // The tree has one leaf more than there are symbols; only damage leads to it.
      return symbol == kLzssEndMark && bits_.WordIsWhole() ? Status::kDone : Status::kDamaged;
    }
    if (bits_.Overrun()) return Status::kDamaged;
  }
  return Status::kMore;
}

// Two bit fields of at most 32 bits each: a code and what follows it.
bool LzssHuffmanReader::ReadMatch(unsigned symbol, LzssOutput& output) {
  const LzssLengthCode& row = kLzssLengthCodes[symbol - kLzssFirstLengthCode];
  const unsigned length = row.base + bits_.Take(row.extraBits) + kLzssMinMatch;
  const unsigned high = ReadSymbol(offsets_);
  const unsigned offset = high << lowOffsetBits_ | bits_.Take(lowOffsetBits_);
  return output.Match(length, offset);
}

unsigned LzssHuffmanReader::ReadSymbol(LzssDecoderTree& tree) {
  bits_.Need32();
  unsigned used = 0;
  const unsigned symbol = tree.Decode(bits_.Peek(), used);
  bits_.Drop(used);
  return symbol;
}

}  // namespace Nox
