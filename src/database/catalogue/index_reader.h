#pragma once

#include <string>

namespace morvex {

class ZEBAssetCache;

// Reads an index file into empty tables. False if there is none, or if anything in it isn't as it should be; the
// tables are to be cleared then. Under the write lock.
[[nodiscard]] bool ReadIndex(const std::string& path, ZEBAssetCache& cache);

}  // namespace morvex
