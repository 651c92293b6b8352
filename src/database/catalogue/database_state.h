#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

#include "database/catalogue/database.h"
#include "database/catalogue/instance_ownership.h"
#include "validation/categories/spec_database.h"

namespace morvex {

class ZEBReadWriteLock;

// The state of the database beside its tables.
struct DatabaseState {
  static constexpr uint32_t kNeverLoaded = 0xFFFFFFFF;

  ZEBStartupSettings settings;  // set before other threads start
  std::atomic<bool> started{false};
  std::atomic<bool> loading{false};
  std::atomic<bool> changed{false};        // the memory differs from the disk
  std::atomic<uint32_t> changeKinds{0};    // since the lock was last free
  std::atomic<bool> writeFailed{false};    // a whole index waits under its temporary name for the next run
  std::mutex changing;                     // held by the backup step
  uint32_t seenGeneration = kNeverLoaded;  // under the write lock
  bool emptiedEditing = false;             // under the write lock
  std::unique_ptr<KoolthingzSpecDatabase> specs;
  std::thread firstLock;
  std::thread writer;
};

DatabaseState& State();

// Under the write lock, without the ownership: takes it and loads the tables if they are out of date.
bool TakeInstallation(bool tryOnly);

// Gives back a write hold and tells the host what changed, if nobody has the lock now.
void ReleaseWriteHold(ZEBReadWriteLock& lock);

// Moves the index file aside, as the backup, before the first change.
void BackUpIndex();

}  // namespace morvex
