#include "database/catalogue/instance_ownership.h"

#include "engine/path.h"
#include "engine/process.h"
#include "engine/time.h"

namespace morvex {

// The fields of the shared block. Read without the mutex by those that wait, so they are atomic.
struct InstanceOwnership::Block {
  std::atomic<uint32_t> master;
  std::atomic<uint32_t> holder;
  std::atomic<uint32_t> waiters;
  std::atomic<uint32_t> generation;
};

namespace {

constexpr size_t kBlockSize = 16;

bool IsGone(uint32_t process) {
  return process == InstanceOwnership::kNobody || !Nox::IsProcessAlive(process);
}

class MutexHold {
 public:
  explicit MutexHold(Nox::NamedMutex& mutex) : mutex_(mutex), held_(mutex.Wait()) {}
  ~MutexHold() {
    if (held_) mutex_.Release();
  }
  MutexHold(const MutexHold&) = delete;
  MutexHold& operator=(const MutexHold&) = delete;

 private:
  Nox::NamedMutex& mutex_;
  const bool held_;
};

}  // namespace

InstanceOwnership& Ownership() {
  static InstanceOwnership ownership;
  return ownership;
}

void InstanceOwnership::Join(const std::string& root) {
  static_assert(sizeof(Block) == kBlockSize && std::atomic<uint32_t>::is_always_lock_free);
  stopped_ = false;
  const std::string path = Nox::Path::AddPath(Nox::Path::AddPath(root, "cache"), kName);
  mutex_ = std::make_unique<Nox::NamedMutex>(path);
  memory_ = std::make_unique<Nox::SharedMemory>(path + "-ipc", kBlockSize);
  const MutexHold hold(*mutex_);
  if (memory_->ProcessAttach() != Nox::SharedMemory::Attached::kFirst) return;
  Block* block = Shared();
  block->master = Nox::GetCurrentProcessId();
  block->holder = kNobody;
  block->waiters = 0;
  block->generation = 0;
}

void InstanceOwnership::Leave() {
  if (mutex_ == nullptr) return;
  Release();
  if (Block* block = Shared()) {
    const MutexHold hold(*mutex_);
    if (block->master == Nox::GetCurrentProcessId()) block->master = kNobody;
    memory_->ProcessDetach();
  }
  memory_.reset();
  mutex_.reset();
}

bool InstanceOwnership::Acquire(bool tryOnly) {
  if (held_) return true;
  if (!TakeIfFree() && (tryOnly || !Wait())) return false;
  ++timesTaken_;
  held_ = true;
  return true;
}

bool InstanceOwnership::TakeIfFree() {
  Block* block = Shared();
  if (block == nullptr) return true;
  const MutexHold hold(*mutex_);
  if (block->holder != kNobody) return false;
  block->holder = Nox::GetCurrentProcessId();
  return true;
}

bool InstanceOwnership::Wait() {
  Block* block = Shared();
  {
    const MutexHold hold(*mutex_);
    ++block->waiters;
  }
  bool taken = false;
  while (!taken && !stopped_) {
    Nox::Delay(kPollMs);
    CheckAlive();
    taken = block->holder == kNobody && TakeIfFree();
  }
  const MutexHold hold(*mutex_);
  --block->waiters;
  return taken;
}

void InstanceOwnership::CheckAlive() {
  Block* block = Shared();
  const uint32_t self = Nox::GetCurrentProcessId();
  if (block->master != self && IsGone(block->master)) {
    const MutexHold hold(*mutex_);
    if (IsGone(block->master)) block->master = self;
  }
  if (block->master != self || block->holder == kNobody || !IsGone(block->holder)) return;
  const MutexHold hold(*mutex_);
  if (IsGone(block->holder)) block->holder = kNobody;
}

void InstanceOwnership::Release() {
  if (!held_) return;
  if (Block* block = Shared()) {
    const MutexHold hold(*mutex_);
    if (block->holder == Nox::GetCurrentProcessId()) block->holder = kNobody;
  }
  held_ = false;
}

uint32_t InstanceOwnership::Generation() const {
  const Block* block = Shared();
  return block == nullptr ? ownGeneration_ : block->generation.load();
}

uint32_t InstanceOwnership::RaiseGeneration() {
  Block* block = Shared();
  return block == nullptr ? ++ownGeneration_ : ++block->generation;
}

InstanceOwnership::Block* InstanceOwnership::Shared() const {
  return memory_ == nullptr ? nullptr : static_cast<Block*>(memory_->Data());
}

}  // namespace morvex
