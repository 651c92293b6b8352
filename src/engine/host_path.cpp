#include "engine/host_path.h"

#include <algorithm>

namespace Nox {

HostPath::HostPath(std::string_view path) {
  text_[0] = '\0';
  if (path.size() > Path::kMaxPath || path.find('\0') != std::string_view::npos) return;
  if (Path::IsWindowsAbsolute(path)) return;
  std::replace_copy(path.begin(), path.end(), text_.begin(), '\\', Path::kSeparator);
  text_[path.size()] = '\0';
  length_ = path.size();
}

}  // namespace Nox
