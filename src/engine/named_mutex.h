#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "engine/file_lock.h"

namespace Nox {

// A mutex that all processes know by the path of a file. Also keeps the threads of one process apart that
// share the object. Not recursive; the thread that got it releases it. A process that dies in any way lets go.
class NamedMutex {
 public:
  explicit NamedMutex(std::string path) : path_(std::move(path)) {}

  // False if the time is over, or if the file can't be opened.
  [[nodiscard]] bool Wait(int timeoutMs = kWaitForever);
  void Release();

 private:
  const std::string path_;
  std::mutex mutex_;              // of held_
  std::optional<FileLock> held_;  // each Wait takes a lock of its own, which keeps threads apart, too
};

}  // namespace Nox
