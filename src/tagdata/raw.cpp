#include "tagdata/raw.h"

#include <cstring>
#include <limits>
#include <utility>

namespace morvex {
namespace {

// Any holder of bytes as something a core can keep alive.
template <typename Holder>
struct Keeper final : Nox::ReferenceCountMP {
  explicit Keeper(Holder held) : bytes(std::move(held)) {}
  const Holder bytes;
};

bool IsTooBig(size_t size) {
  return size > std::numeric_limits<uint32_t>::max();
}

}  // namespace

ACSRawDataCore::ACSRawDataCore(const uint8_t* data, uint32_t size, bool owned,
                               Nox::Ref<Nox::ReferenceCountMP> keepAlive)
    : data_(data), size_(size), owned_(owned), keepAlive_(std::move(keepAlive)) {}

ACSRawDataCore::~ACSRawDataCore() {
  if (owned_) delete[] data_;
}

Raw ACSRawDataCore::TakeBytes(std::unique_ptr<uint8_t[]> data, uint32_t size) {
  if (data == nullptr || size == 0) return Raw();
  Raw core(new ACSRawDataCore(data.get(), size, true, {}));
  data.release();
  return core;
}

Raw ACSRawDataCore::ViewBytes(const uint8_t* data, uint32_t size, Nox::Ref<Nox::ReferenceCountMP> keepAlive) {
  if (data == nullptr || size == 0) return Raw();
  return Raw(new ACSRawDataCore(data, size, false, std::move(keepAlive)));
}

Raw ACSRawDataCore::CopyBytes(const void* data, size_t size) {
  if (data == nullptr || size == 0 || IsTooBig(size)) return Raw();
  auto copy = std::make_unique_for_overwrite<uint8_t[]>(size);
  std::memcpy(copy.get(), data, size);
  return TakeBytes(std::move(copy), static_cast<uint32_t>(size));
}

Raw ACSRawDataCore::TakeText(std::string bytes) {
  if (IsTooBig(bytes.size())) return Raw();
  const auto keeper = Nox::MakeRef<Keeper<std::string>>(std::move(bytes));
  return ViewBytes(reinterpret_cast<const uint8_t*>(keeper->bytes.data()),
                   static_cast<uint32_t>(keeper->bytes.size()), keeper);
}

Raw ACSRawDataCore::ShareBytes(Nox::OwnedBytes bytes) {
  if (IsTooBig(bytes.Size())) return Raw();
  const auto keeper = Nox::MakeRef<Keeper<Nox::OwnedBytes>>(std::move(bytes));
  return ViewBytes(keeper->bytes.Data(), static_cast<uint32_t>(keeper->bytes.Size()), keeper);
}

std::string_view RawBytes(const Raw& raw) {
  return {reinterpret_cast<const char*>(RawData(raw)), RawSize(raw)};
}

std::string_view RawText(const Raw& raw) {
  const std::string_view bytes = RawBytes(raw);
  return bytes.substr(0, bytes.find('\0'));
}

Raw TextRaw(std::string_view text) {
  if (text.empty() || text.size() >= std::numeric_limits<uint32_t>::max()) return Raw();
  auto copy = std::make_unique_for_overwrite<uint8_t[]>(text.size() + 1);
  std::memcpy(copy.get(), text.data(), text.size());
  copy[text.size()] = 0;
  return ACSRawDataCore::TakeBytes(std::move(copy), static_cast<uint32_t>(text.size() + 1));
}

}  // namespace morvex
