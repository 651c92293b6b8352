#pragma once

#include <cstdint>
#include <string_view>

#include "engine/pstring.h"
#include "packages/package_item.h"
#include "packages/package_tables.h"
#include "tagdata/tag_container.h"

namespace morvex {

class TStream;

// A package is the soup that package_tags.h draws, in a plain TagContainer. It stays open as long as something
// holds a part of its soup. What can fail gives an error text, empty on success.

// Loads and checks a package file; `archive` is empty on failure.
[[nodiscard]] Nox::PString OpenArchive(TagContainer& archive, Nox::PString base, std::string_view path);

// Writes a package; the old file stays if that fails.
[[nodiscard]] Nox::PString SaveArchive(const TagContainer& archive, std::string_view path);

// As part of another file, at the stream's position. Both always true: a damaged image leaves `archive` as it was.
bool ReadFromStream(TagContainer& archive, TStream& stream);
bool WriteToStream(const TagContainer& archive, TStream& stream);

// The assets of a package, for whoever goes through them: reaching the next one costs the same however many there
// are. GetAssetAt starts a new one of these in each call.
class ArchiveAssets {
 public:
  explicit ArchiveAssets(const TagContainer& archive);

  uint32_t Count() const { return assets_.GetCount(); }
  // An empty item past the end.
  PackageItem At(uint32_t index) const { return PackageItem(assets_.GetContainerAt(index)); }

 private:
  TagContainer assets_;
};

[[nodiscard]] uint32_t GetAssetCount(const TagContainer& archive);
[[nodiscard]] PackageItem GetAssetAt(const TagContainer& archive, uint32_t index);
// The first index whose asset has that KUID, or -1.
[[nodiscard]] int32_t FindAsset(const TagContainer& archive, const KUID& kuid);

// Change a package and make its tables anew. The asset's soup is shared. Whoever adds many uses a PackageBuilder.
[[nodiscard]] Nox::PString AddAsset(TagContainer& archive, const PackageItem& item);
[[nodiscard]] Nox::PString RemoveAsset(TagContainer& archive, uint32_t index);
void RebuildTables(TagContainer& archive);

// Puts a package together asset by asset, with the result of AddAsset, but the tables are made once: adding an asset
// costs the same however many there are.
class PackageBuilder {
 public:
  // The error texts are those of AddAsset.
  [[nodiscard]] Nox::PString Add(const PackageItem& item);
  // The package so far; empty if it holds no asset.
  TagContainer Finish() const;

 private:
  TagContainer assets_;
  PackageTables tables_;
};

}  // namespace morvex
