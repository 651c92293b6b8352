#include "engine/open_host.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>

#include "engine/host_path.h"
#include "engine/name_lookup.h"

namespace Nox {
namespace {

// Calls `step(done)` until all bytes are done, or it does none.
template <typename Step>
std::size_t Repeat(std::size_t count, Step step) {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t now = step(done);
    if (now < 0 && errno == EINTR) continue;
    if (now <= 0) break;
    done += static_cast<std::size_t>(now);
  }
  return done;
}

}  // namespace

UniqueHandle OpenFound(std::string_view path, int flags) {
  const HostPath host(path);
  if (!host.Valid()) return {};
  UniqueHandle handle(open(host.c_str(), flags | O_CLOEXEC));
  if (handle || (errno != ENOENT && errno != ENOTDIR)) return handle;
  const std::optional<std::string> found = FindExisting(path);
  return found ? UniqueHandle(open(found->c_str(), flags | O_CLOEXEC)) : UniqueHandle();
}

UniqueHandle OpenRegular(std::string_view path, int flags) {
  UniqueHandle handle = OpenFound(path, flags | O_NONBLOCK);
  return handle && IsRegular(handle.Get()) ? std::move(handle) : UniqueHandle();
}

UniqueHandle CreateRegular(std::string_view path, int flags) {
  constexpr mode_t kMode = 0666;  // less what the umask takes away
  const HostPath host(path);
  if (!host.Valid()) return {};
  flags |= O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  UniqueHandle handle(open(host.c_str(), flags, kMode));
  return handle && IsRegular(handle.Get()) ? std::move(handle) : UniqueHandle();
}

UniqueHandle OpenFolder(std::string_view path) {
  return OpenFound(path, O_RDONLY | O_DIRECTORY);
}

bool IsRegular(int handle) {
  struct stat info {};
  return fstat(handle, &info) == 0 && S_ISREG(info.st_mode);
}

std::uint64_t SizeOfHandle(int handle) {
  struct stat info {};
  return fstat(handle, &info) == 0 ? static_cast<std::uint64_t>(info.st_size) : 0;
}

std::size_t ReadFully(int handle, void* data, std::size_t count, std::uint64_t offset) {
  return Repeat(count, [&](std::size_t done) {
    return pread(handle, static_cast<char*>(data) + done, count - done, static_cast<off_t>(offset + done));
  });
}

std::size_t WriteFully(int handle, const void* data, std::size_t count, std::uint64_t offset) {
  return Repeat(count, [&](std::size_t done) {
    return pwrite(handle, static_cast<const char*>(data) + done, count - done,
                  static_cast<off_t>(offset + done));
  });
}

}  // namespace Nox
