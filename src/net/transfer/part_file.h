#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/file_lock.h"

namespace morvex {

struct URL;

// What is there already of a file that is being fetched.
struct FileBeginning {
  std::uint64_t size = 0;
  // What the server called the file when it began, so that it can be asked whether it is still the same one. Empty
  // if nothing is known.
  std::string version;
};

// A file on its way to a place of the caller's. What has come of it stands beside that place in "<target>.part", and
// "<target>.part.txt" notes what it is the beginning of:
//
//   line 1   the URL that was asked for, without its password
//   line 2   the version
//
// The note is there only while both are true of the part, so that a fetch which ended anyhow, by a kill as well, can
// be gone on with. The target is touched by Commit alone. For one thread; others who want the same target, in other
// processes too, are kept out.
class PartFile {
 public:
  explicit PartFile(std::string target);
  // Leaves the part as it is, unless it is empty.
  ~PartFile();
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  // Before anything is changed. Why it can't be had, in words; empty if it can.
  [[nodiscard]] std::string Open();
  [[nodiscard]] const std::string& Path() const { return path_; }

  // What an earlier fetch of the URL left, at any time. Nothing if that can't be gone on with.
  [[nodiscard]] FileBeginning Find(const URL& url) const;
  // Empties the part, and notes what comes now. Without a version it can't be gone on with later.
  void Begin(const URL& url, std::string_view version);
  // Makes the part the target, in place of what was there.
  [[nodiscard]] bool Commit();

 private:
  const std::string target_;
  const std::string path_;
  const std::string notePath_;
  std::optional<Nox::FileLock> lock_;  // on the part
};

}  // namespace morvex
