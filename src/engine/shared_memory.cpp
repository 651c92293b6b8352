#include "engine/shared_memory.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>

#include "engine/open_host.h"

namespace Nox {

// Whoever is attached holds a shared lock on the file. It can be had exclusively only by the first.
SharedMemory::Attached SharedMemory::ProcessAttach() {
  ProcessDetach();
  UniqueHandle handle = CreateRegular(path_, 0);
  if (!handle) return Attached::kFailed;
  const bool first = flock(handle.Get(), LOCK_EX | LOCK_NB) == 0;
  if (flock(handle.Get(), LOCK_SH | LOCK_NB) != 0) return Attached::kFailed;

  // Space that isn't reserved would be missed only at the first write into the block, which would be fatal.
  if (posix_fallocate(handle.Get(), 0, static_cast<off_t>(size_)) != 0) return Attached::kFailed;
  void* mapped = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED, handle.Get(), 0);
  if (mapped == MAP_FAILED) return Attached::kFailed;
  data_ = mapped;
  handle_ = handle.Release();
  return first ? Attached::kFirst : Attached::kShared;
}

void SharedMemory::ProcessDetach() {
  if (data_ == nullptr) return;
  munmap(std::exchange(data_, nullptr), size_);
  const UniqueHandle closed(std::exchange(handle_, -1));
}

}  // namespace Nox
