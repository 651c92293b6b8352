#pragma once

#include <cstdint>

#include "tagdata/kuid.h"

namespace morvex {

class TStream;

// An asset archive file: many assets in package form, behind each other. All numbers are little-endian.
//
//   header   4 bytes "crak", u32 version 0, u32 size of the whole file, u32 serial
//   entries  KUID in stream form, u32 place of the next entry in the file, the item
//   end      the null KUID
//
//   item     a whole chunk file, whose root is the asset: its configuration and its files (packages/package_tags.h)
//
// Size and places are written as placeholders first, so that a file that was cut short never passes for a whole one.
// Whoever lists an archive hops from entry to entry and reads no item.

inline constexpr uint32_t kArchiveMagic = 0x6B617263;  // "crak"
inline constexpr uint32_t kArchiveVersion = 0;

struct ArchiveHeader {
  uint32_t magic = 0;
  uint32_t version = 0;
  uint32_t fileSize = 0;
  uint32_t serial = 0;
};

// Reads a header at the stream's place. One that isn't there whole has another magic.
[[nodiscard]] ArchiveHeader ReadArchiveHeader(TStream& stream);

// Goes through the entries of an archive from the stream's place, behind the header, on. Places only rise, so that
// every walk ends, whatever the file says.
class ArchiveEntries {
 public:
  explicit ArchiveEntries(TStream& stream);

  // Moves to the next entry, and the stream to its item. False at the end.
  [[nodiscard]] bool Next();
  [[nodiscard]] const KUID& Kuid() const { return kuid_; }
  // Whether the walk ended without the end of the archive.
  [[nodiscard]] bool IsDamaged() const { return damaged_; }

 private:
  TStream& stream_;
  const int64_t size_;
  int64_t next_;
  KUID kuid_;
  bool damaged_ = false;
};

}  // namespace morvex
