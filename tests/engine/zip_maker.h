#pragma once

#include <zip.h>

#include <string>
#include <utility>
#include <vector>

// Writes a ZIP file of uncompressed entries; a name that ends in a slash makes a folder. False on any error.
inline bool PutZip(const std::string& path, const std::vector<std::pair<std::string, std::string>>& entries) {
  zip_t* zip = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  if (zip == nullptr) return false;
  bool good = true;
  for (const auto& [name, content] : entries) {
    zip_source_t* source = zip_source_buffer(zip, content.data(), content.size(), 0);
    const zip_int64_t entry =
        name.ends_with('/') ? zip_dir_add(zip, name.c_str(), 0) : zip_file_add(zip, name.c_str(), source, 0);
    good = good && entry >= 0;
    if (name.ends_with('/')) zip_source_free(source);
    zip_set_file_compression(zip, static_cast<zip_uint64_t>(entry), ZIP_CM_STORE, 0);
  }
  return zip_close(zip) == 0 && good;
}
