#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/file.h"

namespace morvex {

// Takes the bytes of an index file in order. Neighbouring stretches of the loaded file are put together again, so
// that what wasn't changed is written in few large pieces; small pieces are gathered in a buffer.
class IndexSink {
 public:
  explicit IndexSink(Nox::File& file) : file_(file) { buffer_.reserve(kBufferSize); }

  // Bytes that stay where they are until Finish.
  void Stretch(std::span<const uint8_t> bytes);
  // Bytes that are copied.
  void Copy(std::string_view bytes);
  void Copy(std::span<const uint8_t> bytes);

  // Bytes so far.
  uint64_t Size() const { return size_; }
  // False if anything didn't get into the file.
  [[nodiscard]] bool Finish();

 private:
  static constexpr size_t kBufferSize = size_t{256} << 10;
  static constexpr size_t kLargePiece = size_t{64} << 10;

  void EndStretch();
  void Gather(std::span<const uint8_t> bytes);
  void FlushBuffer();
  void Put(std::span<const uint8_t> bytes);

  Nox::File& file_;
  std::vector<uint8_t> buffer_;
  std::span<const uint8_t> stretch_;
  uint64_t size_ = 0;
  bool failed_ = false;
};

}  // namespace morvex
