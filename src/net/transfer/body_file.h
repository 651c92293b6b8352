#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <string_view>

#include "engine/file.h"

namespace morvex {

class InputBuffer;

// The local file that a body goes into, as it comes in; or nothing, for one that nobody wants. The bytes are counted
// where other threads can see how far it is.
class BodyFile {
 public:
  // `received` becomes how many bytes of the body there are, those of an offset as well, and must outlive this.
  BodyFile(std::atomic<std::uint64_t>& received, std::uint64_t largest)
      : received_(received), largest_(largest) {}

  // Makes the file; with an offset, opens one that is there behind that many of its bytes.
  [[nodiscard]] bool Open(std::string_view path, std::uint64_t offset = 0);
  // The bytes that come go nowhere.
  void Drop();
  // Takes what comes from here on for the start of the file.
  [[nodiscard]] bool StartOver();

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
  bool drops_ = false;
  bool storingFailed_ = false;
};

}  // namespace morvex
