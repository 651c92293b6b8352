#include "packages/lzss_compress.h"

#include <algorithm>
#include <utility>

#include "packages/lzss_block.h"
#include "packages/lzss_format.h"
#include "packages/lzss_stream_decoder.h"
#include "packages/lzss_stream_encoder.h"

namespace Nox {

LZSSCompress::LZSSCompress() = default;
LZSSCompress::~LZSSCompress() = default;

std::size_t LZSSCompress::Compress(std::uint8_t* dst, std::size_t capacity, const std::uint8_t* src,
                                   std::size_t size, int level) {
  return LzssCompressInto({dst, capacity}, {src, size}, level);
}

std::size_t LZSSCompress::Decompress(std::span<std::uint8_t> dst, const std::uint8_t* src, std::size_t size) {
  return LzssDecompressInto(dst, {src, size});
}

bool LZSSCompress::InitStreamCompress(Callback callback, int level) {
  FreeBuffers();
  if (level < 0 || level > kLzssMaxLevel) level = kLzssMaxLevel;
  SetCallback(std::move(callback));
  encoder_ = std::make_unique<LzssStreamEncoder>(
      std::max(level, 1), [this](auto bytes) { return WriteBuf(bytes.data(), bytes.size()); });
  return true;
}

bool LZSSCompress::StreamCompress(const std::uint8_t* data, std::size_t size) {
  return encoder_ != nullptr && encoder_->Add({data, size});
}

bool LZSSCompress::DoneStreamCompress() {
  const bool done = encoder_ != nullptr && encoder_->Finish();
  FreeBuffers();
  return done;
}

bool LZSSCompress::InitStreamDecompress(Callback callback) {
  FreeBuffers();
  SetCallback(std::move(callback));
  decoder_ = std::make_unique<LzssStreamDecoder>(
      [this](auto bytes) { return WriteBuf(bytes.data(), bytes.size()); });
  return true;
}

bool LZSSCompress::StreamDecompress(const std::uint8_t* data, std::size_t size) {
  return decoder_ != nullptr && decoder_->Add({data, size});
}

bool LZSSCompress::DoneStreamDecompress() {
  const bool done = decoder_ != nullptr && decoder_->Finish();
  FreeBuffers();
  return done;
}

void LZSSCompress::FreeBuffers() {
  encoder_.reset();
  decoder_.reset();
  SetCallback(nullptr);
}

}  // namespace Nox
