#pragma once

#include <dirent.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string_view>

namespace Nox {

// Reads the entries of an open folder as the system has them, "." and ".." left out. The handle stays the
// caller's.
class DirectoryReader {
 public:
  explicit DirectoryReader(int folder) : folder_(folder) {}

  // Null behind the last entry. An entry lives until the next call.
  const dirent64* Next() {
    for (;;) {
      if (at_ == filled_ && !Refill()) return nullptr;
      const auto* entry = reinterpret_cast<const dirent64*>(buffer_ + at_);
      at_ += entry->d_reclen;
      const std::string_view name = entry->d_name;
      if (name != "." && name != "..") return entry;
    }
  }
  bool Failed() const { return failed_; }

 private:
  bool Refill() {
    const ssize_t got = getdents64(folder_, buffer_, sizeof buffer_);
    failed_ = got < 0;
    at_ = 0;
    filled_ = got > 0 ? static_cast<std::size_t>(got) : 0;
    return filled_ > 0;
  }

  int folder_;
  bool failed_ = false;
  std::size_t at_ = 0;
  std::size_t filled_ = 0;
  alignas(dirent64) char buffer_[32768];
};

}  // namespace Nox
