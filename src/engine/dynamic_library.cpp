#include "engine/dynamic_library.h"

#include <dlfcn.h>

namespace Nox {

DynamicLibrary::DynamicLibrary(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (handle_ == nullptr) handle_ = dlopen(name, RTLD_NOW | RTLD_LOCAL);
  }
}

void* DynamicLibrary::Find(const char* name) const {
  return handle_ == nullptr ? nullptr : dlsym(handle_, name);
}

}  // namespace Nox
