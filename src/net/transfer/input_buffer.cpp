#include "net/transfer/input_buffer.h"

#include <algorithm>

#include "net/transfer/net_transport.h"

namespace morvex {

void InputBuffer::Reset(NetTransport* transport) {
  transport_ = transport;
  from_ = to_ = 0;
  ended_ = transport == nullptr;
  failed_ = false;
}

int InputBuffer::Peek() {
  if (from_ != to_) return bytes_[from_];
  std::uint8_t byte = 0;
  return !ended_ && transport_->Peek(&byte, 1) == 1 ? byte : -1;
}

std::span<const std::uint8_t> InputBuffer::Take(std::uint64_t most) {
  if (most == 0 || (from_ == to_ && !Refill())) return {};
  const std::size_t count = static_cast<std::size_t>(std::min<std::uint64_t>(most, to_ - from_));
  from_ += count;
  return {bytes_.get() + from_ - count, count};
}

void InputBuffer::Fail() {
  from_ = to_ = 0;
  ended_ = failed_ = true;
}

bool InputBuffer::Refill() {
  if (ended_) return false;
  if (!bytes_) bytes_ = std::make_unique_for_overwrite<std::uint8_t[]>(kSize);
  const std::ptrdiff_t got = transport_->Read(bytes_.get(), kSize);
  from_ = 0;
  to_ = got > 0 ? static_cast<std::size_t>(got) : 0;
  ended_ = got <= 0;
  failed_ = got < 0;
  return !ended_;
}

}  // namespace morvex
