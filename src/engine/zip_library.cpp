#include "engine/zip_library.h"

#include <memory>

#include "engine/dynamic_library.h"

namespace Nox {
namespace {

std::unique_ptr<const ZipLibrary> Load() {
  const DynamicLibrary library({"libzip.so.4", "libzip.so.5", "libzip.so"});
  auto zip = std::make_unique<ZipLibrary>();
  const bool complete = library.Bind("zip_open", zip->open) && library.Bind("zip_discard", zip->discard) &&
                        library.Bind("zip_get_num_entries", zip->entryCount) &&
                        library.Bind("zip_stat_index", zip->stat) &&
                        library.Bind("zip_fopen_index", zip->openEntry) &&
                        library.Bind("zip_fread", zip->read) && library.Bind("zip_fclose", zip->closeEntry);
  return complete ? std::move(zip) : nullptr;
}

}  // namespace

const ZipLibrary* ZipLibrary::Get() {
  static const std::unique_ptr<const ZipLibrary> library = Load();
  return library.get();
}

}  // namespace Nox
