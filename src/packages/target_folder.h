#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Nox {
class File;
}

namespace morvex {

// A folder that files are written into, and the gate that keeps each write inside it: new paths are made of one
// valid name at a time, links that lie in the folder are replaced and not followed, and one that leads out isn't
// entered. For one thread, but for CreateFile.
class TargetFolder {
 public:
  // Makes the folder. If that fails, nothing can be made in it.
  explicit TargetFolder(std::string_view path);

  const std::string& Path() const { return path_; }

  // The path of a name in a folder of this target; none if the name breaks the name rule.
  static std::optional<std::string> PathOf(std::string_view folder, std::string_view name);

  // Makes a sub-folder, if it isn't there, and gives its path as it is on the disk. None if it can't be made or
  // leads outside. `path` is from PathOf.
  std::optional<std::string> MakeFolder(const std::string& path);

  // Opens a new file in the place of what is there. `path` is from PathOf. With `replace` there may be one from an
  // earlier call.
  bool CreateFile(Nox::File& file, const std::string& path, bool replace = false) const;

 private:
  std::string path_;
  bool fresh_;  // it held nothing, so that what is written now can't meet anything else
  std::string real_;
};

}  // namespace morvex
