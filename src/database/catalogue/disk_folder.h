#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvex {

// A folder of the disk held open, for walks over very many of them: its entries are told apart by what the folder
// itself says of them, and the disk is asked about each file once, for its size.
class DiskFolder {
 public:
  DiskFolder() = default;
  ~DiskFolder();
  DiskFolder(const DiskFolder&) = delete;
  DiskFolder& operator=(const DiskFolder&) = delete;

  // False if it can't be read; holds nothing then.
  [[nodiscard]] bool Open(const std::string& path);

  // Names in no order. Links to folders are in neither list; other links are files.
  const std::vector<std::string>& Files() const { return files_; }
  const std::vector<std::string>& Folders() const { return folders_; }

  // The sizes of the files, added up.
  uint64_t AddUpFiles() const;
  // The file of that name, cases not told apart unless the exact name is there. Empty if there is none.
  std::string_view FindFile(std::string_view name) const;
  // A whole file; none if it can't be read.
  std::optional<std::string> Read(std::string_view name) const;
  // When it was last changed, in nanoseconds; 0 if that can't be told.
  int64_t ChangeTime(std::string_view name) const;

 private:
  void Sort(std::string name, unsigned char kind);

  int handle_ = -1;
  std::vector<std::string> files_;
  std::vector<std::string> folders_;
};

}  // namespace morvex
