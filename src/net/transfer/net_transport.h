#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "net/transfer/net_error.h"

namespace morvex {

// A blocking byte stream to one peer. One thread reads and writes; Close may come from any other, and ends what
// the first one waits for. Nothing is thrown: what fails stays in ErrorCode.
class NetTransport {
 public:
  NetTransport() = default;
  NetTransport(const NetTransport&) = delete;
  NetTransport& operator=(const NetTransport&) = delete;

  // The bytes that arrived, at least one unless the peer has ended the stream: then 0. Negative on an error, and
  // if the peer stays silent for the time-out.
  virtual std::ptrdiff_t Read(void* buffer, std::size_t length) = 0;
  // The same, but the bytes stay to be read.
  virtual std::ptrdiff_t Peek(void* buffer, std::size_t length) = 0;
  // The bytes that went out, fewer than `length` if the peer takes no more.
  virtual std::ptrdiff_t Write(const void* buffer, std::size_t length) = 0;
  // Any thread. ErrorCode becomes kClosed.
  virtual void Close() = 0;
  // A further connection to the same peer, to be judged by its own ErrorCode. Null if this kind has none.
  [[nodiscard]] virtual std::unique_ptr<NetTransport> OpenSecondary(std::uint32_t port) = 0;
  virtual ~NetTransport() = default;
  // Whether a read would not block. True where that can't be told.
  [[nodiscard]] virtual bool HasData() { return true; }
  // What went out to the peer, as the wire counts it. Any thread.
  [[nodiscard]] virtual std::uint64_t BytesSent() const { return 0; }

  // Any thread.
  [[nodiscard]] NetError ErrorCode() const { return errorCode_; }
  // Notes an error unless one is noted already.
  void NoteError(NetError error) {
    NetError none = NetError::kNone;
    errorCode_.compare_exchange_strong(none, error);
  }

  // Why connecting failed, in words; empty if it didn't. For the thread that connected.
  [[nodiscard]] const std::string& FailureText() const { return failureText_; }

 protected:
  void SetError(NetError error) { errorCode_ = error; }
  void SetFailureText(std::string text) { failureText_ = std::move(text); }

 private:
  std::atomic<NetError> errorCode_ = NetError::kNone;
  std::string failureText_;
};

}  // namespace morvex
