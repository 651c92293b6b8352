#include "database/catalogue/disk_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "engine/find.h"
#include "engine/text.h"

namespace morvex {
namespace {

// More than any configuration; see config_reader.
constexpr off_t kMaxRead = off_t{256} << 20;

class Handle {
 public:
  explicit Handle(int value) : value_(value) {}
  ~Handle() {
    if (value_ != -1) close(value_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  int Value() const { return value_; }

 private:
  const int value_;
};

}  // namespace

DiskFolder::~DiskFolder() {
  if (handle_ != -1) close(handle_);
}

bool DiskFolder::Open(const std::string& path) {
  handle_ = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle_ == -1) return false;
  const int reading = dup(handle_);
  DIR* folder = reading == -1 ? nullptr : fdopendir(reading);
  if (folder == nullptr) {
    if (reading != -1) close(reading);
    return false;
  }
  while (const dirent* entry = readdir(folder)) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") Sort(std::string(name), entry->d_type);
  }
  closedir(folder);
  return true;
}

void DiskFolder::Sort(std::string name, unsigned char kind) {
  if (kind == DT_UNKNOWN) {
    struct stat status;
    if (fstatat(handle_, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return;
    kind = S_ISDIR(status.st_mode) ? DT_DIR : S_ISLNK(status.st_mode) ? DT_LNK : DT_REG;
  }
  if (kind == DT_LNK) {
    struct stat status;
    if (fstatat(handle_, name.c_str(), &status, 0) != 0 || S_ISDIR(status.st_mode)) return;
  }
  (kind == DT_DIR ? folders_ : files_).push_back(std::move(name));
}

uint64_t DiskFolder::AddUpFiles() const {
  uint64_t total = 0;
  for (const std::string& name : files_) {
    struct stat status;
    if (fstatat(handle_, name.c_str(), &status, 0) == 0 && S_ISREG(status.st_mode)) {
      total += static_cast<uint64_t>(status.st_size);
    }
  }
  return total;
}

std::string_view DiskFolder::FindFile(std::string_view name) const {
  std::string_view found;
  for (const std::string& file : files_) {
    if (file == name) return file;
    if (Nox::EqualsIgnoreCase(file, name) && (found.empty() || Nox::FindOrderLess(file, found))) found = file;
  }
  return found;
}

std::optional<std::string> DiskFolder::Read(std::string_view name) const {
  const Handle file(openat(handle_, std::string(name).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status;
  if (file.Value() == -1 || fstat(file.Value(), &status) != 0) return std::nullopt;
  if (!S_ISREG(status.st_mode) || status.st_size > kMaxRead) return std::nullopt;
  std::string content(static_cast<size_t>(status.st_size), '\0');
  size_t filled = 0;
  while (filled < content.size()) {
    const ssize_t got = read(file.Value(), content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return std::nullopt;
    filled += static_cast<size_t>(got);
  }
  return content;
}

int64_t DiskFolder::ChangeTime(std::string_view name) const {
  struct stat status;
  if (fstatat(handle_, std::string(name).c_str(), &status, 0) != 0) return 0;
  return int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
}

}  // namespace morvex
