#pragma once

#include "packages/lzss_bit_writer.h"
#include "packages/lzss_encoder_tree.h"
#include "packages/lzss_format.h"
#include "packages/lzss_token_writer.h"

namespace Nox {

// The bit-aligned coding of levels 7 to 9.
class LzssHuffmanWriter : public LzssTokenWriter {
 public:
  LzssHuffmanWriter(const LzssWindow& window, LzssSink& sink)
      : bits_(sink),
        main_(kLzssMainSymbols),
        offsets_(window.offsetSymbols),
        lowOffsetBits_(window.lowOffsetBits) {}

  void Write(std::span<const LzssToken> tokens, const std::uint8_t* data) override;
  void Finish() override;

 private:
  void Match(unsigned length, unsigned offset);
  void Put(LzssCode code, unsigned extra, unsigned extraBits);

  LzssBitWriter bits_;
  LzssEncoderTree main_;
  LzssEncoderTree offsets_;
  unsigned lowOffsetBits_;
};

}  // namespace Nox
