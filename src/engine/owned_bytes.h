#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace Nox {

// A view of bytes that never change, with a share in whatever holds them: a heap block or a mapped file.
// Copies and slices share the owner, which goes with the last of them.
class OwnedBytes {
 public:
  OwnedBytes() = default;
  OwnedBytes(const std::uint8_t* data, std::size_t size, std::shared_ptr<const void> owner)
      : data_(data), size_(size), owner_(std::move(owner)) {}

  [[nodiscard]] static OwnedBytes Copy(std::span<const std::uint8_t> bytes);
  // Takes the vector over, without a copy.
  [[nodiscard]] static OwnedBytes Adopt(std::vector<std::uint8_t> bytes);

  const std::uint8_t* Data() const { return data_; }
  std::size_t Size() const { return size_; }
  bool Empty() const { return size_ == 0; }
  std::span<const std::uint8_t> Span() const { return {data_, size_}; }
  operator std::span<const std::uint8_t>() const { return Span(); }
  std::string_view Text() const { return {reinterpret_cast<const char*>(data_), size_}; }

  // `count` bytes from `offset`, less where fewer are left; sharing the owner.
  [[nodiscard]] OwnedBytes Slice(std::size_t offset, std::size_t count = SIZE_MAX) const;

 private:
  const std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
  std::shared_ptr<const void> owner_;
};

}  // namespace Nox
