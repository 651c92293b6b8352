#include "net/transfer/body_file.h"

#include <algorithm>
#include <limits>

#include "net/transfer/input_buffer.h"

namespace morvex {

bool BodyFile::Open(std::string_view path, std::uint64_t offset) {
  received_ = offset;
  if (offset == 0) {
    storingFailed_ = !file_.Open(path, Nox::OpenMode::kCreate);
  } else {
    storingFailed_ = !file_.Open(path, Nox::OpenMode::kUpdate) || file_.Size() < offset ||
                     !file_.Seek(static_cast<std::int64_t>(offset));
  }
  return !storingFailed_;
}

void BodyFile::Drop() {
  received_ = 0;
  drops_ = true;
}

bool BodyFile::StartOver() {
  received_ = 0;
  storingFailed_ = !file_.Truncate(0) || !file_.Seek(0);
  return !storingFailed_;
}

bool BodyFile::Receive(InputBuffer& input, std::uint64_t length) {
  while (length > 0) {
    const std::span<const std::uint8_t> piece = input.Take(length);
    if (piece.empty() || !Store(piece)) return false;
    length -= piece.size();
  }
  return true;
}

bool BodyFile::ReceiveAll(InputBuffer& input) {
  for (;;) {
    const std::span<const std::uint8_t> piece = input.Take(std::numeric_limits<std::uint64_t>::max());
    if (piece.empty()) return !input.Failed();
    if (!Store(piece)) return false;
  }
}

bool BodyFile::Close() {
  storingFailed_ = !file_.Close() || storingFailed_;
  return !storingFailed_;
}

bool BodyFile::Store(std::span<const std::uint8_t> bytes) {
  const bool isTooLong = bytes.size() > largest_ - std::min(largest_, received_.load());
  storingFailed_ = isTooLong || (!drops_ && file_.Write(bytes.data(), bytes.size()) != bytes.size());
  if (!storingFailed_) received_ += bytes.size();
  return !storingFailed_;
}

}  // namespace morvex
