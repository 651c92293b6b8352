#pragma once

#include <initializer_list>

namespace Nox {

// A library that is found while the program runs, and stays loaded to its end.
class DynamicLibrary {
 public:
  // Loads the first of the names that is there.
  explicit DynamicLibrary(std::initializer_list<const char*> names);

  // Finds a function, also in what the library itself needs. False if there is none, or no library.
  template <typename Function>
  [[nodiscard]] bool Bind(const char* name, Function*& function) const {
    function = reinterpret_cast<Function*>(Find(name));
    return function != nullptr;
  }

 private:
  void* Find(const char* name) const;

  void* handle_ = nullptr;
};

}  // namespace Nox
