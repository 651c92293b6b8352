#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "engine/location.h"

namespace Nox {

// Writes a file anew so that its name always shows a whole one: the bytes go to a hidden file in the same
// folder, which is flushed and renamed over the old file by Commit. Whatever fails, or if Commit is never
// called, the hidden file is removed and the old file stays as it was.
//
// Bytes go to the system as they come, so many small ones are better gathered first.
//
//   ReplaceFile file;
//   bool ok = file.Open(path) && file.Write(bytes) && file.Commit();
class ReplaceFile {
 public:
  ReplaceFile() = default;
  ~ReplaceFile() { Abandon(); }
  ReplaceFile(const ReplaceFile&) = delete;
  ReplaceFile& operator=(const ReplaceFile&) = delete;

  // The folder must exist. False if it doesn't, or if the hidden file can't be made.
  [[nodiscard]] bool Open(LocationView target);

  // Every false is remembered, so a caller may look at Commit alone.
  bool Write(std::span<const std::uint8_t> bytes);
  bool Write(std::string_view text);
  // Overwrites bytes written before, for fields that are known late. `offset` counts from the start.
  bool WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes);
  std::uint64_t Written() const { return written_; }

  // Puts the new file into the place of the old one. With `syncFolder` the new name is on the disk, too, when
  // the call returns.
  [[nodiscard]] bool Commit(bool syncFolder = false);

 private:
  void Abandon();

  int folder_ = -1;
  int handle_ = -1;
  bool failed_ = false;
  std::uint64_t written_ = 0;
  std::string hiddenName_;
  std::string finalName_;
};

// All of it in one call.
[[nodiscard]] bool WriteFileReplacing(LocationView target, std::string_view content, bool syncFolder = false);

}  // namespace Nox
