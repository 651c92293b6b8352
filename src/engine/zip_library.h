#pragma once

#include <zip.h>

namespace Nox {

// The calls of the ZIP library that archives need, found at run time.
struct ZipLibrary {
  decltype(&zip_open) open = nullptr;
  decltype(&zip_discard) discard = nullptr;
  decltype(&zip_get_num_entries) entryCount = nullptr;
  decltype(&zip_stat_index) stat = nullptr;
  decltype(&zip_fopen_index) openEntry = nullptr;
  decltype(&zip_fread) read = nullptr;
  decltype(&zip_fclose) closeEntry = nullptr;

  // Loads it at the first call; null if it isn't installed.
  static const ZipLibrary* Get();
};

}  // namespace Nox
