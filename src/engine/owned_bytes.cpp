#include "engine/owned_bytes.h"

#include <algorithm>

namespace Nox {

OwnedBytes OwnedBytes::Copy(std::span<const std::uint8_t> bytes) {
  return Adopt(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
}

OwnedBytes OwnedBytes::Adopt(std::vector<std::uint8_t> bytes) {
  auto owner = std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes));
  return {owner->data(), owner->size(), owner};
}

OwnedBytes OwnedBytes::Slice(std::size_t offset, std::size_t count) const {
  offset = std::min(offset, size_);
  return {data_ + offset, std::min(count, size_ - offset), owner_};
}

}  // namespace Nox
