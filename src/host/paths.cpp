#include "host/paths.h"

#include <filesystem>
#include <system_error>

#include "engine/path.h"

namespace morvex::host {

std::string AbsolutePath(std::string_view path) {
  if (Nox::Path::IsAbsolute(path)) return Nox::Path::Normalize(path);
  std::error_code none;
  return Nox::Path::Normalize(Nox::Path::AddPath(std::filesystem::current_path(none).string(), path));
}

}  // namespace morvex::host
