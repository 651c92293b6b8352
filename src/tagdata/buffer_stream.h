#pragma once

#include <memory>

#include "engine/dynamic_buffer.h"
#include "tagdata/stream.h"

namespace morvex {

// A stream over a block of memory: its own, or one that is lent to it and must outlive it.
class TBuffer final : public TStream {
 public:
  explicit TBuffer(size_t initial = 0, size_t growth = 4096)
      : owned_(std::make_unique<Nox::DynamicBuffer>(initial, growth)), memory_(*owned_) {}
  explicit TBuffer(Nox::DynamicBuffer& lent) : memory_(lent) {}

  Nox::DynamicBuffer& Memory() { return memory_; }

  void Truncate() override;
  int64_t Position() override;
  bool IsOpen() override { return true; }
  size_t WriteRaw(const void* data, size_t count) override { return memory_.Write(data, count); }
  size_t ReadRaw(void* data, size_t count) override { return memory_.Read(data, count); }
  // The place is clamped to the start and to the capacity of the block.
  void SeekRaw(int64_t offset, Origin origin) override;
  bool AtEnd() override;

 private:
  std::unique_ptr<Nox::DynamicBuffer> owned_;
  Nox::DynamicBuffer& memory_;
};

}  // namespace morvex
