#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "net/transfer/net_transport.h"

// A transport whose peer has said everything before: what it sends is a text, handed out in pieces of a given size.
// What is written to it is kept.
class MemoryTransport final : public morvex::NetTransport {
 public:
  using MakeSecondary = std::function<std::unique_ptr<NetTransport>(std::uint32_t port)>;

  explicit MemoryTransport(std::string_view input, std::string* output = nullptr,
                           std::size_t pieceSize = 1 << 20)
      : input_(input), output_(output), pieceSize_(pieceSize) {}

  // What OpenSecondary answers with.
  void SetSecondary(MakeSecondary make) { makeSecondary_ = std::move(make); }
  // At the end of the text reads fail, in place of the stream's end.
  void FailAtEnd() { failAtEnd_ = true; }

  std::ptrdiff_t Read(void* buffer, std::size_t length) override {
    const std::ptrdiff_t got = Peek(buffer, length);
    if (got > 0) position_ += static_cast<std::size_t>(got);
    if (got < 0) NoteError(morvex::NetError::kReadFailed);
    return got;
  }
  std::ptrdiff_t Peek(void* buffer, std::size_t length) override {
    const std::size_t count = std::min({length, pieceSize_, input_.size() - position_});
    if (closed_ || (count == 0 && failAtEnd_)) return -1;
    if (count > 0) std::memcpy(buffer, input_.data() + position_, count);
    return static_cast<std::ptrdiff_t>(count);
  }
  std::ptrdiff_t Write(const void* buffer, std::size_t length) override {
    if (closed_) return -1;
    if (output_ != nullptr) output_->append(static_cast<const char*>(buffer), length);
    return static_cast<std::ptrdiff_t>(length);
  }
  void Close() override {
    closed_ = true;
    SetError(morvex::NetError::kClosed);
  }
  std::unique_ptr<NetTransport> OpenSecondary(std::uint32_t port) override {
    return makeSecondary_ ? makeSecondary_(port) : nullptr;
  }
  bool HasData() override { return position_ < input_.size(); }

 private:
  const std::string input_;
  std::string* const output_;
  const std::size_t pieceSize_;
  std::size_t position_ = 0;
  bool failAtEnd_ = false;
  bool closed_ = false;
  MakeSecondary makeSecondary_;
};
