#pragma once

#include "packages/lzss_bit_writer.h"
#include "packages/lzss_format.h"
#include "packages/lzss_token_writer.h"
#include "packages/lzss_tree.h"

namespace Nox {

// The bit-aligned coding of levels 7 to 9.
class LzssHuffmanWriter : public LzssTokenWriter {
 public:
  LzssHuffmanWriter(const LzssWindow& window, LzssSink& sink)
      : bits_(sink),
        main_(kLzssMainSymbols),
        offsets_(window.offsetSymbols),
        lowOffsetBits_(window.lowOffsetBits) {}

  void Literals(std::span<const std::uint8_t> bytes) override;
  void Match(unsigned length, unsigned offset) override;
  void Finish() override;

 private:
  LzssBitWriter bits_;
  LzssTree main_;
  LzssTree offsets_;
  unsigned lowOffsetBits_;
};

}  // namespace Nox
