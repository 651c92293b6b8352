#include "tagdata/temporary_path.h"

#include <atomic>

#include "engine/path.h"
#include "engine/rand.h"
#include "tagdata/disk.h"
#include "tagdata/file_name_text.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

constexpr int kTries = 100;
constexpr int kRandomCharacters = 8;
// Left free behind a preferred name for the files of a folder. A name that leaves less counts as taken.
constexpr size_t kRoomForFiles = 64;

std::string RandomName(std::string_view prefix, int counter, std::string_view extension) {
  std::string name(prefix);
  for (int i = 0; i < kRandomCharacters; ++i) {
    const int32_t number = Nox::Rand::Global().NextInt(0, 35);
    name += static_cast<char>(number < 10 ? '0' + number : 'a' + number - 10);
  }
  name += std::to_string(counter);
  if (!extension.empty()) name.append(".").append(extension);
  return name;
}

}  // namespace

bool CreateTemporaryFilePath(Nox::PString base, std::string_view folder, std::string_view prefix,
                             std::string_view extension, std::string& result,
                             std::string_view preferredName) {
  static std::atomic<int> calls{0};
  const int counter = ++calls;
  DiskMakeDir(base, folder);

  if (!preferredName.empty()) {
    result = Nox::Path::AddPath(folder, SanitiseFileName(preferredName)).append(extension);
    if (result.size() + kRoomForFiles <= Nox::Path::kMaxPath && !DiskExists(base, result)) return true;
  }
  for (int i = 0; i < kTries; ++i) {
    result = Nox::Path::AddPath(folder, RandomName(prefix, counter, extension));
    if (!DiskExists(base, result)) return true;
  }
  MorvexLog::Message(
      "CreateTemporaryFilePath> unable to form valid temp path in 100 tries, at path '%s' with prefix '%s'",
      folder, prefix);
  return false;
}

}  // namespace morvex
