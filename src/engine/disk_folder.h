#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/unique_handle.h"

namespace Nox {

// A folder of the disk held open, for walks over very many of them: its entries are told apart by what the folder
// itself says of them, and the disk is asked about each file once, for its size.
class DiskFolder {
 public:
  // False if it can't be read; holds nothing then. Once for each object.
  [[nodiscard]] bool Open(const std::string& path);

  // Names in no order. Links to folders are in neither list; other links are files.
  const std::vector<std::string>& Files() const { return files_; }
  const std::vector<std::string>& Folders() const { return folders_; }

  // The sizes of the files, added up.
  std::uint64_t AddUpFiles() const;
  // The file of that name, found as name_lookup.h says. Empty if there is none.
  std::string_view FindFile(std::string_view name) const;
  // A whole file of at most `limit` bytes; none if it can't be read.
  std::optional<std::string> Read(std::string_view name, std::size_t limit) const;
  // When it was last changed, in nanoseconds; 0 if that can't be told.
  std::int64_t ChangeTime(std::string_view name) const;

 private:
  void Add(std::string name, unsigned char kind);

  UniqueHandle handle_;
  std::vector<std::string> files_;
  std::vector<std::string> folders_;
};

}  // namespace Nox
