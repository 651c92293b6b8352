#include "engine/replace_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "engine/host_path.h"
#include "engine/mounts.h"
#include "engine/name_lookup.h"
#include "engine/open_host.h"
#include "engine/path.h"
#include "engine/rand.h"

namespace Nox {
namespace {

constexpr mode_t kNewFileMode = 0666;  // less what the umask takes away

std::string HiddenName() {
  std::string name = ".";
  for (int i = 0; i < 12; ++i)
    name.push_back("0123456789abcdefghijklmnopqrstuvwxyz"[Rand::Global().NextInt(0, 35)]);
  return name + ".imw";
}

}  // namespace

bool ReplaceFile::Open(LocationView target) {
  Abandon();
  failed_ = true;
  const std::optional<std::string> wanted = ResolveHostPath(target);
  const std::optional<std::string> path = wanted ? ResolveCase(*wanted) : std::nullopt;
  if (!path) return false;
  finalName_ = Path::GetFileName(*path);
  const std::string folder = Path::DelName(*path, false);
  folder_ = OpenFolder(folder.empty() ? "." : folder).Release();
  if (folder_ == -1 || finalName_.empty()) return false;

  for (int tries = 0; tries < 100 && handle_ == -1; ++tries) {
    hiddenName_ = HiddenName();
    handle_ = openat(folder_, hiddenName_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
    if (handle_ == -1 && errno != EEXIST) break;
  }
  failed_ = handle_ == -1;
  return !failed_;
}

bool ReplaceFile::Write(std::span<const std::uint8_t> bytes) {
  if (!WriteAt(written_, bytes)) return false;
  written_ += bytes.size();
  return true;
}

bool ReplaceFile::Write(std::string_view text) {
  return Write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

bool ReplaceFile::WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) {
  if (!failed_ && WriteFully(handle_, bytes.data(), bytes.size(), offset) != bytes.size()) failed_ = true;
  return !failed_;
}

bool ReplaceFile::Commit(bool syncFolder) {
  bool good = handle_ != -1 && !failed_ && fsync(handle_) == 0;
  if (handle_ != -1 && close(std::exchange(handle_, -1)) != 0) good = false;
  good = good && renameat(folder_, hiddenName_.c_str(), folder_, finalName_.c_str()) == 0;
  if (good) {
    hiddenName_.clear();
    if (syncFolder) good = fsync(folder_) == 0;
  }
  Abandon();
  return good;
}

void ReplaceFile::Abandon() {
  if (handle_ != -1) close(std::exchange(handle_, -1));
  if (folder_ != -1) {
    if (!hiddenName_.empty()) unlinkat(folder_, hiddenName_.c_str(), 0);
    close(std::exchange(folder_, -1));
  }
  hiddenName_.clear();
  failed_ = false;
  written_ = 0;
}

bool WriteFileReplacing(LocationView target, std::string_view content, bool syncFolder) {
  ReplaceFile file;
  return file.Open(target) && file.Write(content) && file.Commit(syncFolder);
}

}  // namespace Nox
