#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace morvex {

class NetTransport;

// Reads a transport in large pieces, so that lines can be looked at byte by byte. Once a read fails or the stream
// ends, it gives nothing more. Never holds more than kSize bytes.
class InputBuffer {
 public:
  static constexpr std::size_t kSize = 256 * 1024;

  // Starts over. Null: ended at once.
  void Reset(NetTransport* transport);

  // The next byte; -1 at the end.
  int Next() { return from_ != to_ || Refill() ? bytes_[from_++] : -1; }
  // The same, but the byte stays.
  int Peek();
  // Up to `most` of the next bytes, at least one; empty at the end. Valid until the next call.
  std::span<const std::uint8_t> Take(std::uint64_t most);

  [[nodiscard]] bool Ended() const { return ended_ && from_ == to_; }
  // Whether it ended by an error and not by the peer's own end of the stream.
  [[nodiscard]] bool Failed() const { return failed_; }
  // Whether bytes were read ahead that nobody has taken.
  [[nodiscard]] bool HasRest() const { return from_ != to_; }
  // Gives nothing more from here on, as after a failed read.
  void Fail();

 private:
  bool Refill();

  NetTransport* transport_ = nullptr;
  std::unique_ptr<std::uint8_t[]> bytes_;
  std::size_t from_ = 0;
  std::size_t to_ = 0;
  bool ended_ = true;
  bool failed_ = false;
};

}  // namespace morvex
