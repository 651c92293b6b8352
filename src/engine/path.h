#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Paths as text; nothing here asks the disk. Both '/' and '\' separate; what is made here uses '/'.
namespace Nox::Path {

// The longest path that a call of Nox::File takes. A longer one makes the call fail; it is never cut.
inline constexpr std::size_t kMaxPath = 260;

inline constexpr char kSeparator = '/';

constexpr bool IsSeparator(char c) {
  return c == '/' || c == '\\';
}

// Begins with '/', or has one of the forms of Windows: "c:/", "c:\", "\\". The latter name nothing here.
bool IsAbsolute(std::string_view path);
bool IsWindowsAbsolute(std::string_view path);

// The path with every separator as the platform has it.
std::string ReplaceForwardSlashes(std::string_view path);

// Joins with exactly one separator; an empty side gives the other side.
std::string AddPath(std::string_view folder, std::string_view name);
std::string AddSlash(std::string_view path);  // with a separator at its end, unless it is empty
std::string DelSlash(std::string_view path);  // without one at its end; "/" stays

// Platform separators, no doubled ones, "." and ".." worked out, no separator at the end. ".." at the start of
// a relative path stays; at "/" it is dropped. A path that comes to nothing is ".".
std::string Normalize(std::string_view path);

// The part in front of the last component, with or without its separator. A separator at the end counts
// as an empty last component.
std::string DelName(std::string_view path, bool keepSlash);
// The folder that holds this file or folder: a separator at the end is dropped first.
std::string PrevDir(std::string_view path);

// The last component, a view into `path`. Empty if the path ends in a separator.
std::string_view GetFileName(std::string_view path);
// What stands behind the last point of the last component, without the point. Empty if there is none.
std::string_view GetExt(std::string_view path);
// True if the last component ends in a point and `ext`, in any case. `ext` may have points ("texture.txt").
bool IsExt(std::string_view path, std::string_view ext);
// With `ext` (without a point) in the place of the old extension; an empty one takes the extension away.
std::string SetExt(std::string_view path, std::string_view ext);

// `path` as seen from `base`, separators at the ends kept as they are; `path` unchanged if it isn't below it.
std::string MakeRelativeTo(std::string_view path, std::string_view base);

// The first of several paths separated by ';'.
std::string_view ExtractFirstPath(std::string_view paths);

// True if `path` lies truly below `root`, compared component by component with "." and ".." worked out.
// Both absolute, or both relative; anything else isn't below.
bool IsBelow(std::string_view root, std::string_view path);

}  // namespace Nox::Path
