#include "engine/read_file.h"

#include <fcntl.h>
#include <sys/mman.h>

#include <new>

#include "engine/mounts.h"
#include "engine/open_host.h"
#include "engine/zip_archive.h"

namespace Nox {
namespace {

std::optional<OwnedBytes> ReadHandle(int handle, std::size_t limit) {
  const std::uint64_t size = SizeOfHandle(handle);
  if (size > limit) return std::nullopt;
  std::shared_ptr<std::uint8_t[]> block(new (std::nothrow) std::uint8_t[size]);
  if (block == nullptr) return std::nullopt;
  const std::size_t got = ReadFully(handle, block.get(), size, 0);
  if (got < size && got < SizeOfHandle(handle)) return std::nullopt;  // an error, not a file cut short
  return OwnedBytes(block.get(), got, block);
}

std::optional<OwnedBytes> ReadEntry(const ZipArchive& archive, std::string_view path, std::size_t limit) {
  const ZipArchive::Node* node = archive.Find(path);
  return node == nullptr ? std::nullopt : archive.Read(*node, limit);
}

}  // namespace

std::optional<OwnedBytes> ReadWholeFile(LocationView file, std::size_t limit) {
  const std::optional<ResolvedLocation> resolved = ResolveLocation(file);
  if (!resolved) return std::nullopt;
  if (resolved->archive != nullptr) return ReadEntry(*resolved->archive, resolved->path, limit);
  const UniqueHandle handle = OpenRegular(resolved->path, O_RDONLY);
  return handle ? ReadHandle(handle.Get(), limit) : std::nullopt;
}

std::optional<OwnedBytes> MapFile(LocationView file) {
  const std::optional<std::string> path = ResolveHostPath(file);
  if (!path) return ReadWholeFile(file);
  const UniqueHandle handle = OpenRegular(*path, O_RDONLY);
  if (!handle) return std::nullopt;
  const std::uint64_t size = SizeOfHandle(handle.Get());
  if (size == 0) return OwnedBytes();
  void* mapped = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, handle.Get(), 0);
  if (mapped == MAP_FAILED) return std::nullopt;
  const auto* bytes = static_cast<const std::uint8_t*>(mapped);
  return OwnedBytes(bytes, size, std::shared_ptr<const void>(mapped, [size](void* at) { munmap(at, size); }));
}

}  // namespace Nox
