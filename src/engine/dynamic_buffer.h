#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Nox {

// A block of bytes that grows as it is written, with one position for reading and writing. It grows by at
// least `growth` bytes, and by half of what it holds, so that n small writes cost no more than n steps.
class DynamicBuffer {
 public:
  explicit DynamicBuffer(std::size_t initial = 0, std::size_t growth = 4096);

  // Bytes read: what is left, at most `count`.
  std::size_t Read(void* data, std::size_t count);
  // Writes over what stands there and on behind it. A gap left by Seek is filled with zeros.
  std::size_t Write(const void* data, std::size_t count);

  // A place behind the capacity becomes the capacity.
  void Seek(std::size_t position) { position_ = position < Capacity() ? position : Capacity(); }
  std::size_t Position() const { return position_; }
  std::size_t Length() const { return bytes_.size(); }
  std::size_t Capacity() const { return bytes_.capacity(); }
  // Length and position to 0; the memory is kept.
  void Clear();

  std::span<const std::uint8_t> Bytes() const { return bytes_; }
  // Gives the content away and leaves the buffer empty.
  [[nodiscard]] std::vector<std::uint8_t> Take();

 private:
  std::vector<std::uint8_t> bytes_;
  std::size_t growth_;
  std::size_t position_ = 0;
};

}  // namespace Nox
