#pragma once

#include <cstddef>
#include <optional>

#include "engine/location.h"
#include "engine/owned_bytes.h"

namespace Nox {

// No format of the system can say a larger size.
inline constexpr std::size_t kMaxWholeFile = 0xFFFFFFFF;

// A whole file in one heap block. None if it can't be read, is larger than `limit`, or there is
// no memory for it.
[[nodiscard]] std::optional<OwnedBytes> ReadWholeFile(LocationView file, std::size_t limit = kMaxWholeFile);

// A whole file mapped into memory, for large ones: only what is looked at is read. The file must not be cut
// short while the bytes are in use; replacing it by a rename is fine. An entry of an archive is read instead.
[[nodiscard]] std::optional<OwnedBytes> MapFile(LocationView file);

}  // namespace Nox
