#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/owned_bytes.h"

namespace Nox {

// A ZIP file opened for reading: its names as a tree of folders, an entry read whole. Names that are absolute,
// climb with "..", or are longer than a path may be aren't listed. Safe to use from several threads. The ZIP
// library is loaded when the first archive is opened, so that other runs don't pay for it.
class ZipArchive {
 public:
  // Null if the file can't be read as an archive or the ZIP library isn't there.
  [[nodiscard]] static std::shared_ptr<const ZipArchive> Open(const std::string& hostPath);
  ~ZipArchive();
  ZipArchive(const ZipArchive&) = delete;
  ZipArchive& operator=(const ZipArchive&) = delete;

  struct Node {
    std::string name;
    bool isFolder = true;
    std::uint64_t entry = 0;              // its number in the file; files only
    std::uint64_t size = 0;               // as the directory of the archive claims
    std::vector<std::uint32_t> children;  // in Find order; folders only
  };

  // The node at a path, names found as on the disk; null if there is none. The empty path is the root folder.
  const Node* Find(std::string_view path) const;
  const Node& NodeAt(std::uint32_t index) const { return nodes_[index]; }

  // The content of a file. None if it is damaged, or larger than `limit`.
  [[nodiscard]] std::optional<OwnedBytes> Read(const Node& file, std::size_t limit) const;

 private:
  struct Handle;
  explicit ZipArchive(std::unique_ptr<Handle> handle);
  void Index();

  std::unique_ptr<Handle> handle_;
  std::vector<Node> nodes_;  // 0 is the root
};

}  // namespace Nox
