#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace Nox {

// The cursor through which bytes from outside are read: little-endian, and never past the end. A read that
// doesn't fit gives 0 or an empty view, moves nothing, and makes the reader fail for good: all later reads
// give nothing, so a parser may check Failed() once behind a group of fields.
class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  explicit ByteReader(std::string_view text)
      : bytes_(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()) {}

  std::uint8_t U8() { return Number<std::uint8_t>(); }
  std::uint16_t U16() { return Number<std::uint16_t>(); }
  std::uint32_t U32() { return Number<std::uint32_t>(); }
  std::uint64_t U64() { return Number<std::uint64_t>(); }
  std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
  float F32() { return std::bit_cast<float>(U32()); }

  // Views into the bytes the reader was made of.
  std::span<const std::uint8_t> Bytes(std::size_t count) {
    if (!Has(count)) return {};
    const auto bytes = bytes_.subspan(position_, count);
    position_ += count;
    return bytes;
  }
  std::string_view Text(std::size_t count) {
    const auto bytes = Bytes(count);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }
  bool Skip(std::size_t count) {
    Bytes(count);
    return !failed_;
  }
  // False, and failed, behind the end.
  bool SeekTo(std::size_t position) {
    if (position > bytes_.size()) return Fail();
    if (!failed_) position_ = position;
    return !failed_;
  }

  std::size_t Position() const { return position_; }
  std::size_t Size() const { return bytes_.size(); }
  // 0 once failed, so that no count read earlier can seem to fit.
  std::size_t Remaining() const { return failed_ ? 0 : bytes_.size() - position_; }
  bool AtEnd() const { return Remaining() == 0; }

  bool Failed() const { return failed_; }
  // For a parser that finds a value it can't take. Gives false, to be returned.
  bool Fail() {
    failed_ = true;
    return false;
  }

 private:
  bool Has(std::size_t count) {
    if (!failed_ && count <= bytes_.size() - position_) return true;
    return Fail();
  }

  template <typename T>
  T Number() {
    if (!Has(sizeof(T))) return 0;
    const std::uint8_t* at = bytes_.data() + position_;
    position_ += sizeof(T);
    T value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
      value = static_cast<T>(value | (T{at[i]} << (8 * i)));
    return value;
  }

  std::span<const std::uint8_t> bytes_;
  std::size_t position_ = 0;
  bool failed_ = false;
};

}  // namespace Nox
