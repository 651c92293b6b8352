#include "engine/named_mutex.h"

namespace Nox {

bool NamedMutex::Wait(int timeoutMs) {
  std::optional<FileLock> taken = FileLock::Take(path_, FileLock::Kind::kExclusive, timeoutMs);
  if (!taken) return false;
  const std::lock_guard guard(mutex_);
  held_ = std::move(taken);
  return true;
}

void NamedMutex::Release() {
  std::optional<FileLock> released;  // lets go when all is done here
  const std::lock_guard guard(mutex_);
  released.swap(held_);
}

}  // namespace Nox
