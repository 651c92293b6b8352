#pragma once

#include <string_view>

#include "engine/pstring.h"
#include "tagdata/kuid.h"
#include "tagdata/tag_container.h"

namespace morvex {

// One asset in package form: its configuration and, in the tag `files`, the tree of its files. A small value;
// copies, and an archive that the item came from or went into, see the same soup.
struct PackageItem {
  // A new item, whose files will be compressed.
  PackageItem();
  explicit PackageItem(TagContainer asset) : soup(std::move(asset)) {}

  // True for an item that holds nothing, the answer of operations that failed.
  bool IsEmpty() const { return soup.IsEmpty(); }

  KUID GetKUID() const;
  Nox::PString GetCompression() const;
  TagContainer GetFiles() const;

  void SetCompression(std::string_view value);
  // Takes a copy of the configuration and keeps the compression. Files set earlier are gone.
  void SetConfig(const TagContainer& config);
  // Shares the soup.
  void SetFiles(TagContainer files);

  // The configuration for the installed asset, a tree of its own: without what belongs to the package, and
  // with all dependencies in its `kuid-table`.
  void ExtractConfig(TagContainer& out) const;

  // True if the fingerprint that the item brought is that of its files.
  bool CheckDsid() const;
  void UpdateDsid();

  TagContainer soup;
};

}  // namespace morvex
