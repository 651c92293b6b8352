#include "engine/dynamic_buffer.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Nox {

DynamicBuffer::DynamicBuffer(std::size_t initial, std::size_t growth) : growth_(growth) {
  bytes_.reserve(initial);
}

std::size_t DynamicBuffer::Read(void* data, std::size_t count) {
  if (position_ >= bytes_.size()) return 0;
  count = std::min(count, bytes_.size() - position_);
  if (count > 0) std::memcpy(data, bytes_.data() + position_, count);
  position_ += count;
  return count;
}

std::size_t DynamicBuffer::Write(const void* data, std::size_t count) {
  if (count == 0) return 0;
  const std::size_t end = position_ + count;
  if (end > bytes_.capacity()) {
    const std::size_t held = bytes_.capacity();
    bytes_.reserve(std::max({end, held + growth_, held + held / 2}));
  }
  if (position_ > bytes_.size()) bytes_.resize(position_);
  const auto* from = static_cast<const std::uint8_t*>(data);
  const std::size_t over = std::min(count, bytes_.size() - position_);
  if (over > 0) std::memcpy(bytes_.data() + position_, from, over);
  bytes_.insert(bytes_.end(), from + over, from + count);
  position_ = end;
  return count;
}

void DynamicBuffer::Clear() {
  bytes_.clear();
  position_ = 0;
}

std::vector<std::uint8_t> DynamicBuffer::Take() {
  position_ = 0;
  return std::exchange(bytes_, {});
}

}  // namespace Nox
