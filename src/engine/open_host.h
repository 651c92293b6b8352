#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/unique_handle.h"

namespace Nox {

// Opening by a path of the host, for the files of this folder that speak to the system.

// Opens what exists, its name found as name_lookup.h says. `flags` are those of the system.
[[nodiscard]] UniqueHandle OpenFound(std::string_view path, int flags);

// The same for files, and only regular ones; doesn't wait for the other side of a pipe.
[[nodiscard]] UniqueHandle OpenRegular(std::string_view path, int flags);

// Opens a file for writing, made if need be, under exactly this name. A link in the way makes it fail.
[[nodiscard]] UniqueHandle CreateRegular(std::string_view path, int flags);

[[nodiscard]] UniqueHandle OpenFolder(std::string_view path);

[[nodiscard]] bool IsRegular(int handle);

// The size of an open file.
[[nodiscard]] std::uint64_t SizeOfHandle(int handle);

// All of it, interrupted calls repeated: the bytes done, fewer on an error or at the end of the file.
std::size_t ReadFully(int handle, void* data, std::size_t count, std::uint64_t offset);
std::size_t WriteFully(int handle, const void* data, std::size_t count, std::uint64_t offset);

}  // namespace Nox
