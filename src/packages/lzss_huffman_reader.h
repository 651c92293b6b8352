#pragma once

#include "packages/lzss_bit_reader.h"
#include "packages/lzss_decoder_tree.h"
#include "packages/lzss_format.h"
#include "packages/lzss_token_reader.h"

namespace Nox {

// The bit-aligned coding of levels 7 to 9.
class LzssHuffmanReader : public LzssTokenReader {
 public:
  explicit LzssHuffmanReader(const LzssWindow& window)
      : main_(kLzssMainSymbols), offsets_(window.offsetSymbols), lowOffsetBits_(window.lowOffsetBits) {}

  Status Read(std::span<const std::uint8_t>& input, std::size_t reserve, LzssOutput& output) override;

 private:
  Status ReadTokens(std::size_t reserve, LzssOutput& output);
  bool ReadMatch(unsigned symbol, LzssOutput& output);
  unsigned ReadSymbol(LzssDecoderTree& tree);

  LzssBitReader bits_;
  LzssDecoderTree main_;
  LzssDecoderTree offsets_;
  unsigned lowOffsetBits_;
  bool ended_ = false;
};

}  // namespace Nox
