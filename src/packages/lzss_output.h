#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "packages/lzss_bytes.h"
#include "packages/lzss_format.h"

namespace Nox {

// Where a decoder's bytes go, and where its matches come from: a block of memory that a derived class may
// empty or enlarge when it is full. An operation that gives false found damage or no room, and wrote nothing.
class LzssOutput {
 public:
  LzssOutput() = default;
  LzssOutput(const LzssOutput&) = delete;
  LzssOutput& operator=(const LzssOutput&) = delete;
  virtual ~LzssOutput() = default;

  bool Literal(std::uint8_t byte) {
    if (!Fits(1)) return false;
    *next_++ = byte;
    return true;
  }

  // At most kLzssMaxRun bytes.
  bool Literals(std::span<const std::uint8_t> bytes) {
    if (!Fits(bytes.size())) return false;
    std::memcpy(next_, bytes.data(), bytes.size());
    next_ += bytes.size();
    return true;
  }

  // Repeats `length` (at most kLzssMaxMatch) bytes from `offset` bytes back.
  bool Match(unsigned length, unsigned offset) {
    if (offset == 0 || offset > Held() || !Fits(length)) return false;
    const std::uint8_t* from = next_ - offset;
    if (offset >= kWide && Room() >= length + kWide) {
      // In wide moves, the last of which may write some bytes that later output covers.
      std::uint8_t* to = next_;
      next_ += length;
      do {
        std::memcpy(to, from, kWide);
        to += kWide;
        from += kWide;
      } while (to < next_);
      return true;
    }
    if (offset == 1) {
      std::memset(next_, *from, length);
      next_ += length;
      return true;
    }
    for (unsigned i = 0; i < length; ++i)
      next_[i] = from[i];
    next_ += length;
    return true;
  }

  // Bytes in the block now.
  std::size_t Held() const { return static_cast<std::size_t>(next_ - begin_); }

 protected:
  // Makes room for `size` further bytes, at most kLzssMaxMatch; false if there can't be any.
  virtual bool MakeRoom(std::size_t size) = 0;

  // Gives the block a place: `held` bytes are in it already.
  void SetBlock(std::uint8_t* block, std::size_t held, std::size_t size) {
    begin_ = block;
    next_ = block + held;
    end_ = block + size;
  }
  std::uint8_t* Block() const { return begin_; }

 private:
  static constexpr unsigned kWide = 16;

  std::size_t Room() const { return static_cast<std::size_t>(end_ - next_); }
  bool Fits(std::size_t size) { return size <= Room() || MakeRoom(size); }

  std::uint8_t* begin_ = nullptr;
  std::uint8_t* next_ = nullptr;
  std::uint8_t* end_ = nullptr;
};

}  // namespace Nox
