#include "engine/thread.h"

#include <unistd.h>

#include <chrono>

namespace Nox {

std::uint32_t GetCurrentThreadId() {
  thread_local const auto id = static_cast<std::uint32_t>(gettid());
  return id;
}

void WEvent::Signal() {
  {
    const std::lock_guard lock(mutex_);
    signalled_ = true;
  }
  changed_.notify_one();
}

bool WEvent::Wait(int timeoutMs) {
  std::unique_lock lock(mutex_);
  if (!changed_.wait_for(lock, std::chrono::milliseconds(timeoutMs), [this] { return signalled_; }))
    return false;
  signalled_ = false;
  return true;
}

}  // namespace Nox
