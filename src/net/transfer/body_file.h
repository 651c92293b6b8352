#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <string_view>

#include "engine/file.h"

namespace morvex {

class InputBuffer;

// The local file that a body goes into, as it comes in. The bytes are counted where other threads can see how far
// it is.
class BodyFile {
 public:
  // `received` counts on from what it is, and must outlive this.
  BodyFile(std::atomic<std::uint64_t>& received, std::uint64_t largest)
      : received_(received), largest_(largest) {}

  // Makes the file.
  [[nodiscard]] bool Create(std::string_view path);
  // Opens a file that is there behind its first `offset` bytes.
  [[nodiscard]] bool Continue(std::string_view path, std::uint64_t offset);

  // Takes `length` bytes out of the input. False if it ends before, or can't be stored.
  [[nodiscard]] bool Receive(InputBuffer& input, std::uint64_t length);
  // Takes all there is until the peer ends the stream.
  [[nodiscard]] bool ReceiveAll(InputBuffer& input);

  // True if everything taken is in the file.
  [[nodiscard]] bool Close();
  // Whether it failed here and not at the peer's.
  [[nodiscard]] bool StoringFailed() const { return storingFailed_; }

 private:
  bool Store(std::span<const std::uint8_t> bytes);

  Nox::File file_;
  std::atomic<std::uint64_t>& received_;
  const std::uint64_t largest_;
  bool storingFailed_ = false;
};

}  // namespace morvex
