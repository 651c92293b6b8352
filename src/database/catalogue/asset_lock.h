#pragma once

#include "database/catalogue/read_write_lock.h"

namespace morvex {

// The guard that every database operation holds. The first one of a process waits for the ownership of the
// installation and loads the index; a request for reading becomes one for writing then.
//
// Empty, holding nothing, if the database isn't started, if the try failed, or if the process is shutting down
// while another one owns the installation.
class ZEBAssetLock {
 public:
  explicit ZEBAssetLock(bool write, bool tryOnly = false);
  ~ZEBAssetLock() { Release(); }
  ZEBAssetLock(const ZEBAssetLock&) = delete;
  ZEBAssetLock& operator=(const ZEBAssetLock&) = delete;

  explicit operator bool() const { return held_; }
  bool IsForWriting() const { return held_ && write_; }
  void Release();

 private:
  bool held_ = false;
  bool write_ = false;
};

}  // namespace morvex
