#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/file.h"

namespace Nox {

// One entry of a folder.
struct DirEntry {
  std::string name;
  bool isDir = false;      // a folder, or a link to one
  bool isLink = false;     // a symbolic link
  bool isRegular = false;  // a file, or a link to one; neither of the two for pipes, devices, broken links

  bool IsDir() const { return isDir; }
  bool IsDots() const { return name == "." || name == ".."; }
};

// Find order: by the ASCII-lowered bytes, ties by the bytes as they are.
[[nodiscard]] bool FindOrderLess(std::string_view a, std::string_view b);

// All entries in Find order, without "." and "..". None if the folder can't be read. The disk is asked about
// an entry alone only for links, and where the file system doesn't tell kinds.
[[nodiscard]] std::optional<std::vector<DirEntry>> ListFolder(LocationView folder);

// True if the folder can be read and holds nothing.
[[nodiscard]] bool IsEmptyFolder(LocationView folder);

// '*' stands for any text, '?' for any byte; letters match in either case.
[[nodiscard]] bool MatchWildcards(std::string_view name, std::string_view pattern);

// A walk over the entries of a folder that match a pattern: ".", "..", then the rest in Find order.
//
//   File::Find find;
//   if (find.Open("local/*")) while (const DirEntry* entry = find.Next()) ...
class File::Find {
 public:
  // The pattern's last component may have '*' and '?'. False if the folder can't be read.
  [[nodiscard]] bool Open(LocationView pattern);
  // The next entry, null behind the last. Lives until the next Open or Close.
  const DirEntry* Next();
  // Folder of the pattern and name of the entry that Next gave last.
  std::string GetNameAndPath() const;
  void Close();

 private:
  std::string folder_;
  std::vector<DirEntry> entries_;
  std::size_t next_ = 0;
};

}  // namespace Nox
