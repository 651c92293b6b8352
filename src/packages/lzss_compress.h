#pragma once

#include <memory>

#include "engine/compress.h"

namespace Nox {

class LzssStreamDecoder;
class LzssStreamEncoder;

// The compressor of package files. Blocks need no set-up; a stream lives from its Init to its Done. Code that
// has whole blocks may call the functions of lzss_block.h instead.
class LZSSCompress : public Nox::Compress {
 public:
  LZSSCompress();
  ~LZSSCompress() override;

  std::size_t Compress(std::uint8_t* dst, std::size_t capacity, const std::uint8_t* src, std::size_t size,
                       int level) override;
  std::size_t Decompress(std::span<std::uint8_t> dst, const std::uint8_t* src, std::size_t size) override;

  // A stream is never stored: a level of 0 counts as 1.
  bool InitStreamCompress(Callback callback, int level) override;
  bool StreamCompress(const std::uint8_t* data, std::size_t size) override;
  bool DoneStreamCompress() override;

  bool InitStreamDecompress(Callback callback) override;
  bool StreamDecompress(const std::uint8_t* data, std::size_t size) override;
  bool DoneStreamDecompress() override;

  void FreeBuffers() override;

 private:
  std::unique_ptr<LzssStreamEncoder> encoder_;
  std::unique_ptr<LzssStreamDecoder> decoder_;
};

}  // namespace Nox
