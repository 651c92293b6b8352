#include "packages/lzss_stream_encoder.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Nox {
namespace {

unsigned WindowIdOf(int level) {
  return kLzssLevels[static_cast<std::size_t>(level)].windowId;
}
const LzssWindow& WindowOf(int level) {
  return kLzssWindows[WindowIdOf(level)];
}

}  // namespace

LzssStreamEncoder::BlockSink::BlockSink(WriteBytes write) : write_(std::move(write)) {
  SetBuffer(block_.data(), block_.size());
}

bool LzssStreamEncoder::BlockSink::Flush() {
  if (Failed()) return false;
  const bool written = Held() == 0 || write_(HeldBytes());
  Clear();
  return written;
}

LzssStreamEncoder::LzssStreamEncoder(int level, WriteBytes write)
    : sink_(std::move(write)),
      writer_(MakeLzssTokenWriter(level, WindowIdOf(level), sink_)),
      encoder_(WindowOf(level), kLzssLevels[static_cast<std::size_t>(level)].goodLength,
               LzssEncoder::BufferSize(WindowOf(level)), *writer_),
      buffer_(LzssEncoder::BufferSize(WindowOf(level)) + kLzssMaxMatch) {
  sink_.Put8(LzssHeader(WindowIdOf(level), level));
}

bool LzssStreamEncoder::Add(std::span<const std::uint8_t> data) {
  while (!data.empty() && !sink_.Failed()) {
    const std::size_t count = std::min(data.size(), buffer_.size() - held_);
    std::memcpy(buffer_.data() + held_, data.data(), count);
    held_ += count;
    data = data.subspan(count);
    if (held_ == buffer_.size()) Work();
  }
  return !sink_.Failed();
}

// Codes up to the next slide, or to the end of the buffer if that comes first, and makes room.
void LzssStreamEncoder::Work() {
  encoder_.Run(buffer_.data(), held_);
  if (encoder_.Position() == held_) return;
  const std::size_t delta = encoder_.Slide();
  std::memmove(buffer_.data(), buffer_.data() + delta, held_ - delta);
  held_ -= delta;
}

bool LzssStreamEncoder::Finish() {
  while (encoder_.Position() < held_ && !sink_.Failed())
    Work();
  encoder_.Finish(buffer_.data());
  writer_->Finish();
  return sink_.Flush();
}

}  // namespace Nox
