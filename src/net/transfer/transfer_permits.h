#pragma once

#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace morvex {

// Bounds how many transfers run at once. Nobody waits for a permit while holding a lock.
class TransferPermits {
 public:
  explicit TransferPermits(int count) : free_(count) {}

  // Waits for a permit. False, without one, if the token asks to stop.
  [[nodiscard]] bool Take(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    if (!given_.wait(lock, stop, [this] { return free_ > 0; })) return false;
    --free_;
    return true;
  }
  void Give() {
    {
      const std::lock_guard guard(mutex_);
      ++free_;
    }
    given_.notify_one();
  }

 private:
  std::mutex mutex_;
  std::condition_variable_any given_;
  int free_;
};

// One permit, or none if the wait for it was ended.
class TransferPermit {
 public:
  TransferPermit(TransferPermits& permits, const std::stop_token& stop)
      : permits_(permits.Take(stop) ? &permits : nullptr) {}
  ~TransferPermit() {
    if (permits_ != nullptr) permits_->Give();
  }
  TransferPermit(const TransferPermit&) = delete;
  TransferPermit& operator=(const TransferPermit&) = delete;

  explicit operator bool() const { return permits_ != nullptr; }

 private:
  TransferPermits* const permits_;
};

}  // namespace morvex
