#include "engine/file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "engine/mounts.h"
#include "engine/name_lookup.h"
#include "engine/open_host.h"
#include "engine/read_file.h"
#include "engine/zip_archive.h"

namespace Nox {
namespace {

UniqueHandle OpenAs(const std::string& path, OpenMode mode) {
  switch (mode) {
    case OpenMode::kRead:
    case OpenMode::kReadShared:
      return OpenRegular(path, O_RDONLY);
    case OpenMode::kUpdate:
      return OpenRegular(path, O_RDWR);
    case OpenMode::kCreate:
    case OpenMode::kCopyTarget:
      break;
  }
  const std::optional<std::string> target = ResolveCase(path);
  return target ? CreateRegular(*target, O_TRUNC) : UniqueHandle();
}

}  // namespace

File& File::operator=(File&& other) noexcept {
  if (this == &other) return *this;
  Close();
  handle_ = std::exchange(other.handle_, -1);
  inMemory_ = std::exchange(other.inMemory_, false);
  bytes_ = std::exchange(other.bytes_, {});
  position_ = std::exchange(other.position_, 0);
  return *this;
}

bool File::Open(LocationView location, OpenMode mode) {
  Close();
  const std::optional<ResolvedLocation> resolved = ResolveLocation(location);
  if (!resolved) return false;
  if (resolved->archive == nullptr) {
    handle_ = OpenAs(resolved->path, mode).Release();
    return IsOpen();
  }
  if (mode != OpenMode::kRead && mode != OpenMode::kReadShared) return false;
  std::optional<OwnedBytes> content = ReadWholeFile(location);
  inMemory_ = content.has_value();
  if (inMemory_) bytes_ = *std::move(content);
  return inMemory_;
}

bool File::CreateNew(LocationView location) {
  Close();
  const std::optional<std::string> path = ResolveHostPath(location);
  if (path) handle_ = CreateRegular(*path, O_EXCL).Release();
  return IsOpen();
}

std::size_t File::Read(void* data, std::size_t count) {
  std::size_t done = 0;
  if (inMemory_) {
    const OwnedBytes rest = bytes_.Slice(static_cast<std::size_t>(position_), count);
    done = rest.Size();
    if (done > 0) std::memcpy(data, rest.Data(), done);
  } else if (handle_ != -1) {
    done = ReadFully(handle_, data, count, position_);
  }
  position_ += done;
  return done;
}

std::size_t File::Write(const void* data, std::size_t count) {
  if (handle_ == -1) return 0;
  const std::size_t done = WriteFully(handle_, data, count, position_);
  position_ += done;
  return done;
}

bool File::Seek(std::int64_t offset, SeekOrigin origin) {
  std::uint64_t base = 0;
  if (origin == SeekOrigin::kCurrent) base = position_;
  if (origin == SeekOrigin::kEnd) base = Size();
  std::int64_t target = 0;
  if (__builtin_add_overflow(static_cast<std::int64_t>(base), offset, &target) || target < 0) return false;
  position_ = static_cast<std::uint64_t>(target);
  return true;
}

std::uint64_t File::Size() const {
  if (inMemory_) return bytes_.Size();
  return handle_ == -1 ? 0 : SizeOfHandle(handle_);
}

std::size_t File::ReadLine(char* buffer, std::size_t size) {
  if (size == 0) return 0;
  const std::uint64_t start = position_;
  const std::size_t got = Read(buffer, size - 1);
  const void* lineEnd = std::memchr(buffer, '\n', got);
  const std::size_t length =
      lineEnd == nullptr ? got : static_cast<std::size_t>(static_cast<const char*>(lineEnd) - buffer) + 1;
  buffer[length] = '\0';
  position_ = start + length;
  return length;
}

bool File::Truncate(std::uint64_t size) {
  constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
  return handle_ != -1 && size <= kLargest && ftruncate(handle_, static_cast<off_t>(size)) == 0;
}

bool File::Sync() {
  return handle_ != -1 && fsync(handle_) == 0;
}

bool File::Close() {
  const bool good = handle_ == -1 || close(handle_) == 0;
  handle_ = -1;
  inMemory_ = false;
  bytes_ = {};
  position_ = 0;
  return good;
}

bool File::Subst(PString name, std::string_view path, bool isFolder) {
  return MountPack(name, path, isFolder);
}

}  // namespace Nox
