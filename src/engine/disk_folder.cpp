#include "engine/disk_folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "engine/directory_reader.h"
#include "engine/find.h"
#include "engine/open_host.h"
#include "engine/text.h"

namespace Nox {

bool DiskFolder::Open(const std::string& path) {
  handle_ = UniqueHandle(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!handle_) return false;
  DirectoryReader reader(handle_.Get());
  while (const dirent64* entry = reader.Next())
    Add(entry->d_name, entry->d_type);
  return true;
}

void DiskFolder::Add(std::string name, unsigned char kind) {
  struct stat info {};
  if (kind == DT_UNKNOWN) {
    if (fstatat(handle_.Get(), name.c_str(), &info, AT_SYMLINK_NOFOLLOW) != 0) return;
    kind = S_ISDIR(info.st_mode) ? DT_DIR : S_ISLNK(info.st_mode) ? DT_LNK : DT_REG;
  }
  if (kind == DT_LNK) {
    if (fstatat(handle_.Get(), name.c_str(), &info, 0) != 0 || S_ISDIR(info.st_mode)) return;
  }
  (kind == DT_DIR ? folders_ : files_).push_back(std::move(name));
}

std::uint64_t DiskFolder::AddUpFiles() const {
  std::uint64_t total = 0;
  for (const std::string& name : files_) {
    struct stat info {};
    if (fstatat(handle_.Get(), name.c_str(), &info, 0) == 0 && S_ISREG(info.st_mode))
      total += static_cast<std::uint64_t>(info.st_size);
  }
  return total;
}

std::string_view DiskFolder::FindFile(std::string_view name) const {
  std::string_view found;
  for (const std::string& file : files_) {
    if (file == name) return file;
    if (EqualsIgnoreCase(file, name) && (found.empty() || FindOrderLess(file, found))) found = file;
  }
  return found;
}

std::optional<std::string> DiskFolder::Read(std::string_view name, std::size_t limit) const {
  const UniqueHandle file(
      openat(handle_.Get(), std::string(name).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file || !IsRegular(file.Get())) return std::nullopt;
  const std::uint64_t size = SizeOfHandle(file.Get());
  if (size > limit) return std::nullopt;
  std::string content(size, '\0');
  if (ReadFully(file.Get(), content.data(), size, 0) != size) return std::nullopt;
  return content;
}

std::int64_t DiskFolder::ChangeTime(std::string_view name) const {
  struct stat info {};
  if (fstatat(handle_.Get(), std::string(name).c_str(), &info, 0) != 0) return 0;
  return std::int64_t{info.st_mtim.tv_sec} * 1'000'000'000 + info.st_mtim.tv_nsec;
}

}  // namespace Nox
