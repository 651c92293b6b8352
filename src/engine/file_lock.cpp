#include "engine/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include "engine/unique_handle.h"

namespace Nox {
namespace {

using Clock = std::chrono::steady_clock;

UniqueHandle OpenLockFile(const std::string& path) {
  UniqueHandle handle(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666));
  // A lock is possible where writing isn't.
  return handle ? std::move(handle) : UniqueHandle(open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

// Waits by asking again: the system has no call that waits for a limited time.
bool LockWithin(int handle, int operation, int timeoutMs) {
  const auto end = Clock::now() + std::chrono::milliseconds(std::max(timeoutMs, 0));
  auto pause = std::chrono::milliseconds(1);
  for (;;) {
    if (flock(handle, timeoutMs < 0 ? operation : operation | LOCK_NB) == 0) return true;
    if (errno == EINTR) continue;
    if (errno != EWOULDBLOCK || Clock::now() >= end) return false;
    std::this_thread::sleep_for(pause);
    pause = std::min(pause * 2, std::chrono::milliseconds(20));
  }
}

// False if the file was removed or replaced while its lock was waited for: others lock another file now.
bool IsStillAt(int handle, const std::string& path) {
  struct stat mine {};
  struct stat named {};
  return fstat(handle, &mine) == 0 && stat(path.c_str(), &named) == 0 && mine.st_dev == named.st_dev &&
         mine.st_ino == named.st_ino;
}

}  // namespace

std::optional<FileLock> FileLock::Take(const std::string& path, Kind kind, int timeoutMs) {
  for (;;) {
    UniqueHandle handle = OpenLockFile(path);
    const int operation = kind == Kind::kShared ? LOCK_SH : LOCK_EX;
    if (!handle || !LockWithin(handle.Get(), operation, timeoutMs)) return std::nullopt;
    if (IsStillAt(handle.Get(), path)) return FileLock(handle.Release());
  }
}

FileLock::~FileLock() {
  const UniqueHandle closed(handle_);
}

}  // namespace Nox
