#pragma once

#include <string>
#include <string_view>

#include "engine/pstring.h"

namespace Nox {

// A pack's name and a path inside it. With an empty pack name the path is a path of the host.
struct Location {
  PString pack;
  std::string path;

  bool operator==(const Location&) const = default;
};

// A location as the functions of Nox::File take it: a path, or {pack, path}. Holds a view; for calls only.
struct LocationView {
  LocationView(std::string_view p) : path(p) {}
  LocationView(const char* p) : path(p) {}
  LocationView(const std::string& p) : path(p) {}
  LocationView(PString pk, std::string_view p) : pack(pk), path(p) {}
  LocationView(const Location& location) : pack(location.pack), path(location.path) {}

  Location Copy() const { return {pack, std::string(path)}; }

  PString pack;
  std::string_view path;
};

}  // namespace Nox
