#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "engine/path.h"

namespace Nox {

// A path in the form the system calls take: platform separators and a NUL, in a buffer of its own. Paths that
// can't name anything (empty, longer than kMaxPath, a NUL inside, a Windows form) leave it invalid.
class HostPath {
 public:
  explicit HostPath(std::string_view path);

  bool Valid() const { return length_ != 0; }
  const char* c_str() const { return text_.data(); }
  std::string_view View() const { return {text_.data(), length_}; }

 private:
  std::size_t length_ = 0;
  std::array<char, Path::kMaxPath + 1> text_;
};

}  // namespace Nox
