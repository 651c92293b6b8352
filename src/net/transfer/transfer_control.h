#pragma once

#include <cstdint>
#include <mutex>
#include <stop_token>

namespace morvex {

class NetConnection;

// What the thread of a download shares with those who watch it or cancel it.
class TransferControl {
 public:
  // Any thread. Cancel closes the connection in use, which ends what the worker waits for.
  void Cancel();
  [[nodiscard]] bool IsCancelled() const { return stop_.stop_requested(); }
  [[nodiscard]] std::stop_token Token() const { return stop_.get_token(); }
  // Bytes of the body so far and as announced, of the connection in use or the last one.
  [[nodiscard]] std::uint64_t BytesReceived() const;
  [[nodiscard]] std::uint64_t BytesExpected() const;
  // What went out over that connection.
  [[nodiscard]] std::uint64_t BytesSent() const;

  // The worker says which connection it uses, and that it uses none. False, and nothing is in use, if the download
  // was cancelled before.
  [[nodiscard]] bool Attach(NetConnection& connection);
  void Detach();

 private:
  std::stop_source stop_;
  mutable std::mutex lock_;              // the task's lock: nothing but a connection's own is taken under it
  NetConnection* connection_ = nullptr;  // the worker's
  std::uint64_t received_ = 0;
  std::uint64_t expected_ = 0;
  std::uint64_t sent_ = 0;
};

}  // namespace morvex
