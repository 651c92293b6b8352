#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "engine/pstring.h"

namespace Nox {
class ResourceDatabase;
}

namespace morvex {

// The resources of a pack: of `<root>/<name>.ja` if there is such a file, else of the folder `<root>/<name>`.
// While it lives, locations in the pack can be used.
class MorvexResourceDatabase;

inline constexpr size_t kMaxPacks = 256;

// The table of mounted packs has a lock of its own, under which no other is taken.

// Mounts a pack or counts a further use of it. Null when the table is full of packs in use.
MorvexResourceDatabase* ZEBMountPack(Nox::PString name, std::string_view root);
// Ends one use; the pack stays mounted until its place is needed or everything is unmounted. Null is ignored.
void ZEBUnmountPack(MorvexResourceDatabase* pack);
// Ends all packs, used or not.
void ZEBUnmountAllPacks();

// Mounts a pack of the current root for a block. The empty name mounts nothing.
class PackMount {
 public:
  explicit PackMount(Nox::PString name);
  ~PackMount() { ZEBUnmountPack(pack_); }
  PackMount(const PackMount&) = delete;
  PackMount& operator=(const PackMount&) = delete;

  // Null if nothing is mounted.
  Nox::ResourceDatabase* Database() const;

 private:
  MorvexResourceDatabase* pack_ = nullptr;
};

}  // namespace morvex
