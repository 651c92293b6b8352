#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace Nox {

// The calling thread's number, which no other living thread of the machine has.
[[nodiscard]] std::uint32_t GetCurrentThreadId();

// An event: Signal wakes one waiter, or lets the next one pass.
class WEvent {
 public:
  void Signal();
  // False if nobody signalled within the time.
  bool Wait(int timeoutMs);

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool signalled_ = false;
};

}  // namespace Nox
