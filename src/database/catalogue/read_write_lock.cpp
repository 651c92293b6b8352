#include "database/catalogue/read_write_lock.h"

#include <algorithm>

namespace morvex {

bool ZEBReadWriteLock::Acquire(Mode mode, bool tryOnly) {
  std::unique_lock guard(mutex_);
  if (!Grant(mode)) {
    if (tryOnly) return false;
    const bool writer = mode == Mode::kWrite;
    if (writer) ++waitingWriters_;
    changed_.wait(guard, [&] { return Grant(mode); });
    if (writer) --waitingWriters_;
  }
  if (holders_.empty()) writeMode_ = mode == Mode::kWrite;
  holders_.push_back(std::this_thread::get_id());
  return true;
}

bool ZEBReadWriteLock::Release() {
  const std::lock_guard guard(mutex_);
  const auto mine = std::find(holders_.rbegin(), holders_.rend(), std::this_thread::get_id());
  if (mine != holders_.rend()) holders_.erase(std::next(mine).base());
  if (!holders_.empty()) return false;
  writeMode_ = false;
  changed_.notify_all();
  return true;
}

// A waiting writer counts itself among those that wait, which keeps readers out but not the writer.
bool ZEBReadWriteLock::Grant(Mode mode) const {
  const size_t mine = HoldsOfThisThread();
  if (mode == Mode::kWrite) return holders_.empty() || (writeMode_ && mine == holders_.size());
  if (mine > 0) return true;
  return waitingWriters_ == 0 && !writeMode_;
}

size_t ZEBReadWriteLock::HoldsOfThisThread() const {
  return static_cast<size_t>(std::count(holders_.begin(), holders_.end(), std::this_thread::get_id()));
}

bool ZEBReadWriteLock::HeldForWriting() const {
  const std::lock_guard guard(mutex_);
  return writeMode_ && HoldsOfThisThread() > 0;
}

bool ZEBReadWriteLock::HeldByThisThread() const {
  const std::lock_guard guard(mutex_);
  return HoldsOfThisThread() > 0;
}

}  // namespace morvex
