#pragma once

#include <optional>
#include <string>
#include <utility>

namespace Nox {

inline constexpr int kWaitForever = -1;

// An advisory lock on a file, held from Take until the object goes. It belongs to the object, so two objects
// of one process exclude each other as well; the system lets go of it when the process ends in any way.
class FileLock {
 public:
  enum class Kind { kShared, kExclusive };

  // Makes the file if need be. None if it can't be opened, or if the lock isn't to be had within the time: 0
  // only tries.
  [[nodiscard]] static std::optional<FileLock> Take(const std::string& path, Kind kind,
                                                    int timeoutMs = kWaitForever);

  FileLock(FileLock&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
  FileLock& operator=(FileLock&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~FileLock();

 private:
  explicit FileLock(int handle) : handle_(handle) {}

  int handle_;
};

}  // namespace Nox
