#pragma once

#include <unistd.h>

#include <utility>

namespace Nox {

// A handle of the system that closes itself; -1 for none.
class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(int handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    const UniqueHandle closed(std::exchange(handle_, other.Release()));
    return *this;
  }
  ~UniqueHandle() {
    if (handle_ != -1) close(handle_);
  }

  int Get() const { return handle_; }
  explicit operator bool() const { return handle_ != -1; }
  int Release() { return std::exchange(handle_, -1); }

 private:
  int handle_ = -1;
};

}  // namespace Nox
