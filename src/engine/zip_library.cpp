#include "engine/zip_library.h"

#include <dlfcn.h>

#include <memory>

namespace Nox {
namespace {

template <typename Function>
bool Bind(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  return function != nullptr;
}

std::unique_ptr<const ZipLibrary> Load() {
  void* library = nullptr;
  for (const char* name : {"libzip.so.4", "libzip.so.5", "libzip.so"}) {
    if (library == nullptr) library = dlopen(name, RTLD_NOW | RTLD_LOCAL);
  }
  if (library == nullptr) return nullptr;
  auto zip = std::make_unique<ZipLibrary>();
  const bool complete = Bind(library, "zip_open", zip->open) && Bind(library, "zip_discard", zip->discard) &&
                        Bind(library, "zip_get_num_entries", zip->entryCount) &&
                        Bind(library, "zip_stat_index", zip->stat) &&
                        Bind(library, "zip_fopen_index", zip->openEntry) &&
                        Bind(library, "zip_fread", zip->read) && Bind(library, "zip_fclose", zip->closeEntry);
  return complete ? std::move(zip) : nullptr;
}

}  // namespace

const ZipLibrary* ZipLibrary::Get() {
  static const std::unique_ptr<const ZipLibrary> library = Load();
  return library.get();
}

}  // namespace Nox
