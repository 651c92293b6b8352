#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/owned_bytes.h"
#include "engine/reference.h"

namespace morvex {

class ACSRawDataCore;

// A counted view of bytes that keeps their owner alive. An empty Raw is no core at all.
using Raw = Nox::Ref<ACSRawDataCore>;

// One block of bytes, owned or borrowed. Never changes after it is made, so threads may share it.
class ACSRawDataCore final : public Nox::ReferenceCountMP {
 public:
  // Each gives an empty Raw for absent data or a size of 0. Sizes are limited to 32 bits.
  // Takes over a block.
  static Raw TakeBytes(std::unique_ptr<uint8_t[]> data, uint32_t size);
  // Borrows bytes that live as long as `keepAlive`; without one the caller answers for them.
  static Raw ViewBytes(const uint8_t* data, uint32_t size, Nox::Ref<Nox::ReferenceCountMP> keepAlive);
  static Raw CopyBytes(const void* data, size_t size);
  static Raw TakeText(std::string bytes);
  // Shares a block of the engine, a mapped file for one. Empty too if it is 4 GiB or more.
  static Raw ShareBytes(Nox::OwnedBytes bytes);

  ~ACSRawDataCore() override;

  const uint8_t* Data() const { return data_; }
  uint32_t Size() const { return size_; }

 private:
  ACSRawDataCore(const uint8_t* data, uint32_t size, bool owned, Nox::Ref<Nox::ReferenceCountMP> keepAlive);

  const uint8_t* data_;
  uint32_t size_;
  bool owned_;
  Nox::Ref<Nox::ReferenceCountMP> keepAlive_;
};

// The bytes of a Raw that may be empty.
inline const uint8_t* RawData(const Raw& raw) {
  return raw ? raw->Data() : nullptr;
}
inline uint32_t RawSize(const Raw& raw) {
  return raw ? raw->Size() : 0;
}
// All bytes of a Raw as characters, a NUL at the end included.
std::string_view RawBytes(const Raw& raw);
// The text of a Raw: up to its first NUL or its end, whichever comes first.
std::string_view RawText(const Raw& raw);
// A copy of a text and a NUL behind it; empty for the empty text.
Raw TextRaw(std::string_view text);

}  // namespace morvex
