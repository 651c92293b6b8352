#include "engine/real_path.h"

#include <filesystem>
#include <system_error>

#include "engine/path.h"

namespace Nox {

std::string RealPath(std::string_view path) {
  std::error_code failed;
  const std::filesystem::path real = std::filesystem::canonical(path, failed);
  return failed ? std::string() : real.string();
}

bool IsWithin(std::string_view realFolder, std::string_view real) {
  if (realFolder.empty()) return false;
  return real == realFolder || Path::IsBelow(realFolder, real);
}

}  // namespace Nox
