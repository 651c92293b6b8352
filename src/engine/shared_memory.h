#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace Nox {

// A block of bytes that processes share through a file. A process that is attached, and lives, is noticed by
// the next one that attaches, even if the file was left behind by processes that were killed.
class SharedMemory {
 public:
  enum class Attached {
    kFailed,
    kFirst,   // nobody else is attached: the content is zero, or what dead processes left
    kShared,  // some other object, as a rule of another process, is attached
  };

  SharedMemory(std::string path, std::size_t size) : path_(std::move(path)), size_(size) {}
  ~SharedMemory() { ProcessDetach(); }
  SharedMemory(const SharedMemory&) = delete;
  SharedMemory& operator=(const SharedMemory&) = delete;

  // Makes the file if need be and gives it its size. Processes must take turns here, under a mutex of theirs.
  [[nodiscard]] Attached ProcessAttach();
  // The block; null while not attached.
  void* Data() const { return data_; }
  void ProcessDetach();

 private:
  const std::string path_;
  const std::size_t size_;
  void* data_ = nullptr;
  int handle_ = -1;
};

}  // namespace Nox
