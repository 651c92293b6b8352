#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "packages/lzss_bytes.h"

namespace Nox {

// Where an encoder's bytes go: into a buffer that a derived class may empty when it is full. Once a write
// hasn't fitted, the sink has failed for good, and nothing more is written.
class LzssSink {
 public:
  LzssSink(std::uint8_t* buffer, std::size_t size) { SetBuffer(buffer, size); }
  LzssSink(const LzssSink&) = delete;
  LzssSink& operator=(const LzssSink&) = delete;
  virtual ~LzssSink() = default;

  void Put8(std::uint8_t value) {
    if (Fits(1)) *next_++ = value;
  }
  void Put32(std::uint32_t value) {
    if (!Fits(4)) return;
    LzssStore32(next_, value);
    next_ += 4;
  }
  void Put(std::span<const std::uint8_t> bytes) {
    if (bytes.empty() || !Fits(bytes.size())) return;
    std::memcpy(next_, bytes.data(), bytes.size());
    next_ += bytes.size();
  }

  // The lowest `count` bytes of `value`, up to 8. May write over what is free behind them.
  void PutLow(std::uint64_t value, unsigned count) {
    if (Room() < 8) [[unlikely]]
      return PutOneByOne(value, count);
    LzssStore64(next_, value);
    next_ += count;
  }

  bool Failed() const { return failed_; }
  // Bytes in the buffer now.
  std::size_t Held() const { return static_cast<std::size_t>(next_ - begin_); }

 protected:
  // For a derived class that has the buffer itself; to be followed by SetBuffer.
  LzssSink() = default;
  void SetBuffer(std::uint8_t* buffer, std::size_t size) {
    begin_ = next_ = buffer;
    end_ = buffer + size;
  }
  // Empties the full buffer; false if that can't be done.
  virtual bool Drain() { return false; }
  std::span<const std::uint8_t> HeldBytes() const { return {begin_, next_}; }
  void Clear() { next_ = begin_; }

 private:
  std::size_t Room() const { return static_cast<std::size_t>(end_ - next_); }
  bool Fits(std::size_t size) { return size <= Room() || MakeRoom(size); }
  void PutOneByOne(std::uint64_t value, unsigned count) {
    for (; count != 0; --count, value >>= 8)
      Put8(static_cast<std::uint8_t>(value));
  }
  bool MakeRoom(std::size_t size) {
    if (!failed_ && Drain() && size <= Room()) return true;
    failed_ = true;
    end_ = next_;
    return false;
  }

  std::uint8_t* begin_ = nullptr;
  std::uint8_t* next_ = nullptr;
  std::uint8_t* end_ = nullptr;
  bool failed_ = false;
};

}  // namespace Nox
