#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "tagdata/kuid.h"
#include "tagdata/kuid_list.h"

namespace morvex {

class TagContainer;
class TStream;
class ZEBAssetInfo;

// One archive file that holds assets in package form, as the index file knows it. Owned by the ZEBArchiveList.
// Guarded by the database lock: what changes it, or the records of its assets, needs a write hold.
struct ZEBArchive {
  // An estimate of more bytes isn't taken in: 2000 MiB.
  static constexpr uint64_t kMaxTotalSize = 0x7D000000;
  // What an asset of unknown size counts as.
  static constexpr uint32_t kAssumedSize = 0x100000;

  bool mounted = false;
  bool scanning = false;
  uint32_t number = 0;  // archives without one aren't stored
  KUIDList kuids;       // what it holds, each once
  std::string path;
  std::string name;
  uint32_t serial = 0;     // ties the entry to its file
  uint32_t hits = 0;       // scratch of a selection
  uint64_t totalSize = 0;  // bytes, by estimate; 0: to be computed

  // Adds an asset to the list, and notes it as archived. False for the null KUID, for one that is there already, and
  // if the archive would grow too large.
  [[nodiscard]] bool Add(const KUID& kuid);
  // Takes an asset off the list; whether it is archived is looked up anew then. Its record, or null if it wasn't
  // there or has none.
  ZEBAssetInfo* Remove(const KUID& kuid);
  // The size in bytes that an asset counts as.
  [[nodiscard]] static uint64_t SizeOf(const KUID& kuid);

  // Makes the package form of an asset; empty if it can't, and the asset is left out then.
  using MakeItem = std::function<TagContainer(const KUID& kuid)>;
  // Writes the file, from the stream's start on, and takes a read hold for the time. True if all assets are in it;
  // otherwise it may lack some, or have no end.
  [[nodiscard]] bool Write(TStream& stream, const MakeItem& makeItem) const;
  // Takes over what a file holds. The stream stands behind the header. Unknown assets get records. False, and no
  // change, for a damaged file.
  [[nodiscard]] bool Scan(TStream& stream);
  // Whether a file, from the stream's place on, is this archive's. Takes a read hold.
  [[nodiscard]] bool Matches(TStream& stream) const;
};

}  // namespace morvex
