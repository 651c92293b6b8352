// The copies of Nox::File.

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "engine/file.h"
#include "engine/mounts.h"
#include "engine/name_lookup.h"
#include "engine/open_host.h"
#include "engine/path.h"

namespace Nox {
namespace {

// Lets the system copy; the bytes done before it gave up, which is at once on some disks.
std::uint64_t CopyBySystem(int from, int to) {
  if (ioctl(to, FICLONE, from) == 0) return SizeOfHandle(from);
  constexpr std::size_t kStep = std::size_t{1} << 30;
  off_t read = 0;
  off_t written = 0;
  for (;;) {
    const ssize_t done = copy_file_range(from, &read, to, &written, kStep, 0);
    if (done == 0 || (done < 0 && errno != EINTR)) return static_cast<std::uint64_t>(written);
  }
}

bool CopyContent(File& from, int to) {
  std::uint64_t done = from.Handle() == -1 ? 0 : CopyBySystem(from.Handle(), to);
  if (!from.Seek(static_cast<std::int64_t>(done))) return false;
  std::array<char, 65536> block;
  while (const std::size_t got = from.Read(block.data(), block.size())) {
    if (WriteFully(to, block.data(), got, done) != got) return false;
    done += got;
  }
  return done >= from.Size();
}

bool IsSameFile(int a, int b) {
  struct stat first {};
  struct stat second {};
  return fstat(a, &first) == 0 && fstat(b, &second) == 0 && first.st_dev == second.st_dev &&
         first.st_ino == second.st_ino;
}

// Fills the target and closes it; removes it if that fails.
bool Fill(File& from, UniqueHandle target, const std::string& targetPath) {
  const bool copied = CopyContent(from, target.Get());
  const bool closed = close(target.Release()) == 0;
  if (!copied || !closed) unlink(targetPath.c_str());
  return copied && closed;
}

}  // namespace

bool File::CopyFile(LocationView from, LocationView to) {
  File source;
  const std::optional<std::string> wanted = ResolveHostPath(to);
  const std::optional<std::string> path = wanted ? ResolveCase(*wanted) : std::nullopt;
  if (!path || !source.Open(from, OpenMode::kRead)) return false;
  UniqueHandle target = CreateRegular(*path, 0);
  if (!target) return false;
  // Emptied only now that it is known to be another file.
  if (IsSameFile(source.Handle(), target.Get())) return true;
  if (ftruncate(target.Get(), 0) != 0) return false;
  return Fill(source, std::move(target), *path);
}

bool File::CopyToNew(LocationView from, LocationView to) {
  File source;
  const std::optional<std::string> path = ResolveHostPath(to);
  if (!path || !source.Open(from, OpenMode::kRead)) return false;
  UniqueHandle target = CreateRegular(*path, O_EXCL);
  return target && Fill(source, std::move(target), Path::ReplaceForwardSlashes(*path));
}

}  // namespace Nox
