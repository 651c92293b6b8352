#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>

#include "net/transfer/socket_calls.h"

namespace morvex {

// A connected TCP socket. One thread uses it; Shut may come from any other.
class StreamSocket {
 public:
  explicit StreamSocket(std::chrono::milliseconds timeout) : timeout_(timeout) {}
  ~StreamSocket();
  StreamSocket(const StreamSocket&) = delete;
  StreamSocket& operator=(const StreamSocket&) = delete;

  // Connects, once. False if the host isn't known or doesn't take us; FailureText says why.
  [[nodiscard]] bool Open(const std::string& host, std::uint32_t port);
  // Waits at 127.0.0.1 for one connection.
  [[nodiscard]] bool Await(std::uint16_t port);

  // At least one byte, 0 at the end of the stream, negative on an error or when the time is over.
  std::ptrdiff_t Receive(void* buffer, std::size_t length, sockets::Receive how = sockets::Receive::kTake);
  // The bytes that went out; all of them as long as the peer takes some in each span of the time-out.
  std::ptrdiff_t Send(const void* buffer, std::size_t length);
  [[nodiscard]] bool HasData() const;
  // All that went out so far. Any thread.
  [[nodiscard]] std::uint64_t BytesSent() const { return sent_; }

  // Any thread. Ends what is waited for; everything later fails.
  void Shut();
  [[nodiscard]] bool IsOpen() const { return !shut_ && handle_ != sockets::INVALID_SOCKET; }
  [[nodiscard]] const std::string& FailureText() const { return failureText_; }

 private:
  // Takes the handle in place of the old one, which is closed. False if Shut came before.
  bool Adopt(sockets::SOCKET handle);
  bool Fail(std::string text);
  bool FailWithLastError();

  const std::chrono::milliseconds timeout_;
  std::mutex lock_;  // of handle_ where it changes, so that Shut never meets a number that was closed
  sockets::SOCKET handle_ = sockets::INVALID_SOCKET;
  std::atomic<bool> shut_ = false;
  std::atomic<std::uint64_t> sent_ = 0;
  std::string failureText_;
};

}  // namespace morvex
