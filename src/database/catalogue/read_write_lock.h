#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace morvex {

// Many readers or one writer, and each thread may take it again while it holds it:
//
//   nobody holds it       a read is granted unless a writer waits; a write is granted
//   this thread holds it  a read is granted; a write only if it alone holds it and already for writing
//   others hold it        a read is granted unless it is held for writing or a writer waits; a write waits
//
// So a read hold can't become a write hold: whoever needs that releases first, or waits for ever.
class ZEBReadWriteLock {
 public:
  enum class Mode { kRead, kWrite };

  // False only with `tryOnly`, if it can't be granted now.
  bool Acquire(Mode mode, bool tryOnly = false);
  // Gives back one hold of the calling thread. True if nobody holds the lock now.
  bool Release();

  // The calling thread holds it for writing, the lock being in write mode.
  bool HeldForWriting() const;
  bool HeldByThisThread() const;

 private:
  bool Grant(Mode mode) const;
  size_t HoldsOfThisThread() const;

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::thread::id> holders_;  // one entry for each hold
  bool writeMode_ = false;
  int waitingWriters_ = 0;
};

}  // namespace morvex
