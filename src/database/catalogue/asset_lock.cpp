#include "database/catalogue/asset_lock.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/database_state.h"

namespace morvex {

using Mode = ZEBReadWriteLock::Mode;

ZEBAssetLock::ZEBAssetLock(bool write, bool tryOnly) {
  if (!ZEBIsStarted()) return;
  ZEBReadWriteLock& lock = ZEBAssetCache::Instance().lock;
  if (!lock.Acquire(write ? Mode::kWrite : Mode::kRead, tryOnly)) return;
  write_ = write;
  if (!Ownership().IsHeld()) {
    // A read hold can't become a write hold.
    if (!write) {
      lock.Release();
      if (!lock.Acquire(Mode::kWrite, tryOnly)) return;
      write_ = true;
    }
    if (!TakeInstallation(tryOnly)) {
      lock.Release();
      return;
    }
  }
  held_ = true;
}

void ZEBAssetLock::Release() {
  if (!held_) return;
  held_ = false;
  ZEBReadWriteLock& lock = ZEBAssetCache::Instance().lock;
  if (write_) {
    ReleaseWriteHold(lock);
  } else {
    lock.Release();
  }
}

}  // namespace morvex
