#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "engine/location.h"
#include "engine/owned_bytes.h"

namespace Nox {

// How File::Open opens.
enum class OpenMode : std::uint32_t {
  kRead = 0x10,
  kReadShared = 0x20,
  kCreate = 0x101,      // makes the file, or empties it; a symbolic link in the way makes it fail
  kUpdate = 0x201,      // reads and writes a file that exists
  kCopyTarget = 0x301,  // as kCreate
};

enum class SeekOrigin { kStart = 0, kCurrent = 1, kEnd = 2 };

// An open file: one of the disk, or an entry of an archive, which can only be read. Only regular files open, so
// that no pipe or device can make a run wait. Closes itself. For one thread at a time. Names are found as
// name_lookup.h says, in every call here.
class File {
 public:
  class Find;

  File() = default;
  ~File() { Close(); }
  File(File&& other) noexcept { *this = std::move(other); }
  File& operator=(File&& other) noexcept;

  // Closes what was open before. False leaves the object closed.
  [[nodiscard]] bool Open(LocationView location, OpenMode mode);
  // Makes a new file under exactly this name, in a folder whose other names the caller knows: nothing is looked
  // up, and a file in the way makes it fail.
  [[nodiscard]] bool CreateNew(LocationView location);
  bool IsOpen() const { return handle_ != -1 || inMemory_; }

  // Bytes read or written; fewer than asked for at the end of the file, on an error, on a full disk.
  std::size_t Read(void* data, std::size_t count);
  std::size_t Write(const void* data, std::size_t count);

  // False, and nothing moves, if the place would lie before the start. It may lie behind the end.
  bool Seek(std::int64_t offset, SeekOrigin origin = SeekOrigin::kStart);
  std::uint64_t Tell() const { return position_; }
  std::uint64_t Size() const;
  bool Eof() const { return position_ >= Size(); }

  // Reads up to and with the next line end, at most size - 1 bytes, and ends them with a NUL. The number of
  // bytes read, 0 at the end of the file.
  std::size_t ReadLine(char* buffer, std::size_t size);

  // Cuts the file off at `size`, or fills it up with zeros.
  [[nodiscard]] bool Truncate(std::uint64_t size);
  // Waits until the content is on the disk.
  [[nodiscard]] bool Sync();
  // False if the system reports only now that something couldn't be written.
  bool Close();

  // What the system knows the file by; -1 for an entry of an archive. Stays the file's own.
  int Handle() const { return handle_; }

  [[nodiscard]] static bool Exists(LocationView location);    // a file, a folder, anything
  [[nodiscard]] static bool IsFolder(LocationView location);  // links followed
  [[nodiscard]] static std::optional<std::uint64_t> SizeOf(LocationView file);

  // True on success, also below. Unlink removes a file or a link, never a folder.
  static bool Unlink(LocationView file);
  // Gives a file or folder a new name, replacing a file atomically. A folder in the way makes it fail.
  static bool Rename(LocationView from, LocationView to);
  // Makes a folder with its parents; true if it is there already.
  static bool Md(LocationView folder);
  // Removes an empty folder.
  static bool Rd(LocationView folder);
  // Removes a folder with all its content, of any depth. Links are removed and never followed. Goes on past
  // what can't be removed, and answers false then.
  static bool Prune(LocationView folder);
  // Copies the content, by the system itself where it can (no bytes pass through the process). A copy that
  // fails is removed. A file copied to itself stays as it is.
  static bool CopyFile(LocationView from, LocationView to);
  // The same into a file that CreateNew makes.
  static bool CopyToNew(LocationView from, LocationView to);
  // Waits until the entries of a folder are on the disk.
  static bool SyncFolder(LocationView folder);

  // Binds a pack's name to a folder or archive; an empty path ends it.
  static bool Subst(PString name, std::string_view path, bool isFolder);

 private:
  int handle_ = -1;
  bool inMemory_ = false;  // reading from bytes_
  OwnedBytes bytes_;
  std::uint64_t position_ = 0;
};

}  // namespace Nox
