#include "engine/path.h"

#include <algorithm>
#include <vector>

#include "engine/text.h"

namespace Nox::Path {
namespace {

// "\\" at the start of a network path. It is kept as it is, for as "/" it would name something here.
std::string_view NetworkPrefix(std::string_view path) {
  return path.starts_with("\\\\") ? path.substr(0, 2) : "";
}

// Takes the next component off the path; empty at the end.
std::string_view TakeComponent(std::string_view& path) {
  while (!path.empty() && IsSeparator(path.front()))
    path.remove_prefix(1);
  const auto end = std::find_if(path.begin(), path.end(), IsSeparator);
  const std::string_view component = path.substr(0, static_cast<std::size_t>(end - path.begin()));
  path.remove_prefix(component.size());
  return component;
}

std::string_view WithoutEndSlashes(std::string_view path) {
  while (path.size() > 1 && IsSeparator(path.back()))
    path.remove_suffix(1);
  return path;
}

}  // namespace

bool IsWindowsAbsolute(std::string_view path) {
  if (path.starts_with("\\\\")) return true;
  const bool letter = !path.empty() && ToLower(path[0]) >= 'a' && ToLower(path[0]) <= 'z';
  return letter && path.size() >= 3 && path[1] == ':' && IsSeparator(path[2]);
}

bool IsAbsolute(std::string_view path) {
  return path.starts_with('/') || IsWindowsAbsolute(path);
}

std::string ReplaceForwardSlashes(std::string_view path) {
  std::string result(path);
  const auto begin = result.begin() + static_cast<std::ptrdiff_t>(NetworkPrefix(path).size());
  std::replace(begin, result.end(), '\\', kSeparator);
  return result;
}

std::string AddPath(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  std::string result(folder);
  if (name.empty()) return result;
  if (!IsSeparator(result.back())) result.push_back(kSeparator);
  while (!name.empty() && IsSeparator(name.front()))
    name.remove_prefix(1);
  return result.append(name);
}

std::string AddSlash(std::string_view path) {
  std::string result(path);
  if (!result.empty() && !IsSeparator(result.back())) result.push_back(kSeparator);
  return result;
}

std::string DelSlash(std::string_view path) {
  return std::string(WithoutEndSlashes(path));
}

std::string Normalize(std::string_view path) {
  std::string result(NetworkPrefix(path));
  if (result.empty() && !path.empty() && IsSeparator(path.front())) result = kSeparator;
  const bool rooted = !result.empty();

  std::vector<std::string_view> kept;
  for (auto part = TakeComponent(path); !part.empty(); part = TakeComponent(path)) {
    if (part == ".") continue;
    if (part != "..") {
      kept.push_back(part);
    } else if (!kept.empty() && kept.back() != "..") {
      kept.pop_back();
    } else if (!rooted) {
      kept.push_back(part);
    }
  }
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (i > 0) result.push_back(kSeparator);
    result.append(kept[i]);
  }
  return result.empty() ? "." : result;
}

std::string DelName(std::string_view path, bool keepSlash) {
  path.remove_suffix(GetFileName(path).size());
  return std::string(keepSlash ? path : WithoutEndSlashes(path));
}

std::string PrevDir(std::string_view path) {
  return DelName(WithoutEndSlashes(path), false);
}

std::string_view GetFileName(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string_view GetExt(std::string_view path) {
  const std::string_view name = GetFileName(path);
  const std::size_t point = name.rfind('.');
  return point == std::string_view::npos ? std::string_view() : name.substr(point + 1);
}

bool IsExt(std::string_view path, std::string_view ext) {
  const std::string_view name = GetFileName(path);
  return name.size() > ext.size() && name[name.size() - ext.size() - 1] == '.' &&
         EndsWithIgnoreCase(name, ext);
}

std::string SetExt(std::string_view path, std::string_view ext) {
  const std::size_t point = GetFileName(path).rfind('.');
  if (point != std::string_view::npos) path.remove_suffix(GetFileName(path).size() - point);
  std::string result(path);
  if (!ext.empty()) result.append(".").append(ext);
  return result;
}

std::string MakeRelativeTo(std::string_view path, std::string_view base) {
  if (IsAbsolute(path) != IsAbsolute(base)) return std::string(path);
  std::string_view rest = path;
  for (auto part = TakeComponent(base); !part.empty(); part = TakeComponent(base)) {
    if (TakeComponent(rest) != part) return std::string(path);
  }
  while (!rest.empty() && IsSeparator(rest.front()))
    rest.remove_prefix(1);
  return std::string(rest);
}

std::string_view ExtractFirstPath(std::string_view paths) {
  return paths.substr(0, paths.find(';'));
}

bool IsBelow(std::string_view root, std::string_view path) {
  if (IsWindowsAbsolute(root) || IsWindowsAbsolute(path) || IsAbsolute(root) != IsAbsolute(path))
    return false;
  const std::string top = Normalize(root);
  const std::string place = Normalize(path);
  const auto climbs = [](const std::string& p) { return p == ".." || p.starts_with("../"); };
  if (climbs(top) || climbs(place)) return false;
  if (top == ".") return place != ".";
  const std::string prefix = AddSlash(top);
  return place.size() > prefix.size() && place.starts_with(prefix);
}

}  // namespace Nox::Path
