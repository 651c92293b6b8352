#pragma once

#include <string>

namespace morvex {

class ZEBAssetCache;

// Writes the tables to a file, and waits until it is on the disk. Records and sections that weren't changed since
// the load are written as they lie in the loaded file. False if it can't be written as a whole. Under a hold of
// the lock.
[[nodiscard]] bool WriteIndex(const std::string& path, const ZEBAssetCache& cache);

}  // namespace morvex
