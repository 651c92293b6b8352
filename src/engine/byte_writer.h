#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Nox {

// Appends little-endian numbers and bytes to a container of bytes that the caller owns.
template <typename Container>
class ByteWriter {
 public:
  explicit ByteWriter(Container& out) : out_(out) {}

  void U8(std::uint8_t value) { out_.push_back(static_cast<typename Container::value_type>(value)); }
  void U16(std::uint16_t value) { Number(value); }
  void U32(std::uint32_t value) { Number(value); }
  void U64(std::uint64_t value) { Number(value); }
  void I32(std::int32_t value) { Number(static_cast<std::uint32_t>(value)); }
  void F32(float value) { Number(std::bit_cast<std::uint32_t>(value)); }

  void Bytes(std::span<const std::uint8_t> bytes) { out_.insert(out_.end(), bytes.begin(), bytes.end()); }
  void Text(std::string_view text) { out_.insert(out_.end(), text.begin(), text.end()); }
  void Zeros(std::size_t count) { out_.resize(out_.size() + count); }

  std::size_t Size() const { return out_.size(); }

  // Overwrites four bytes written before.
  void PatchU32(std::size_t position, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
      out_[position + i] = static_cast<typename Container::value_type>(value >> (8 * i));
    }
  }

 private:
  template <typename T>
  void Number(T value) {
    const std::size_t at = out_.size();
    out_.resize(at + sizeof(T));
    for (std::size_t i = 0; i < sizeof(T); ++i) {
      out_[at + i] = static_cast<typename Container::value_type>(value >> (8 * i));
    }
  }

  Container& out_;
};

}  // namespace Nox
