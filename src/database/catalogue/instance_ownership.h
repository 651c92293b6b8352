#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "engine/named_mutex.h"
#include "engine/shared_memory.h"

namespace morvex {

// Which process of an installation has its database. The processes share a mutex and a block of 16 bytes, in
// `<root>/cache`:
//
//   u32 master      process id of the first one; 0xFFFFFFFF when it has left
//   u32 holder      process id of the owner; 0xFFFFFFFF when nobody is
//   u32 waiters     how many wait for ownership
//   u32 generation  raised at each write of the index
//
// The master sees to it that a holder that died loses the ownership; the others see to it that there is a master.
class InstanceOwnership {
 public:
  static constexpr uint32_t kNobody = 0xFFFFFFFF;
  static constexpr const char* kName = "09731AC6-B611-4e2a-B181-578073F64F24";
  static constexpr unsigned kPollMs = 100;

  // Where nothing can be shared (a folder that can't be written), the process has the installation to itself.
  void Join(const std::string& root);
  // Gives the ownership up and detaches.
  void Leave();

  // Waits for the ownership, if it isn't this process's already. False if Stop was called, or, with `tryOnly`, if
  // it isn't free.
  [[nodiscard]] bool Acquire(bool tryOnly);
  bool IsHeld() const { return held_; }
  void Release();
  // Ends the waiting of all threads, until the next Join.
  void Stop() { stopped_ = true; }

  uint32_t Generation() const;
  // Gives the new value.
  uint32_t RaiseGeneration();
  // How often this process got the ownership.
  uint32_t TimesTaken() const { return timesTaken_; }

 private:
  struct Block;

  bool TakeIfFree();
  bool Wait();
  void CheckAlive();
  Block* Shared() const;

  std::unique_ptr<Nox::NamedMutex> mutex_;
  std::unique_ptr<Nox::SharedMemory> memory_;
  std::atomic<bool> held_{false};
  std::atomic<bool> stopped_{false};
  std::atomic<uint32_t> timesTaken_{0};
  uint32_t ownGeneration_ = 0;  // where nothing is shared
};

// The one of this process.
InstanceOwnership& Ownership();

}  // namespace morvex
