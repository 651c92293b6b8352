// Export of the names of files.

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "engine/path.h"
#include "validation/qel/container.h"
#include "validation/qel/export_check.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

constexpr std::array<std::string_view, 4> kMeshFiles = {"im", "lm", "lm.txt", "pm"};
constexpr std::array<std::string_view, 5> kImageFiles = {"bmp", "tga", "jpg", "texture", "txt"};
constexpr std::array<std::string_view, 1> kAnimationFiles = {"kin"};

struct FileType {
  std::string_view datatype;
  std::span<const std::string_view> extensions;
  MessageEntry complaint;
};
constexpr std::array<FileType, 3> kFileTypes = {{
    {"meshes", kMeshFiles, kEntryMeshFileType},
    {"image", kImageFiles, kEntryImageFileType},
    {"animation", kAnimationFiles, kEntryAnimationFileType},
}};

void CheckExtension(const Tag& tag, std::string_view path, Nox::PString containerName) {
  for (const FileType& type : kFileTypes) {
    if (tag.datatype != type.datatype) continue;
    const bool fits = std::any_of(type.extensions.begin(), type.extensions.end(),
                                  [&](std::string_view ext) { return Nox::Path::IsExt(path, ext); });
    if (!fits) ReportError(tag, type.complaint, tag.name, containerName);
  }
}

bool ExportFile(const Tag& tag, Nox::PString containerName, TagContainer& out) {
  const bool holds = PassesRules(tag);
  if (tag.value.empty()) {
    ReportError(tag, kEntryEmptyPath, tag.name, containerName);
    return false;
  }
  std::string path = Nox::Path::ReplaceForwardSlashes(tag.value);
  CheckExtension(tag, path, containerName);
  // The engine finds "x.lm.txt" and "x.texture.txt" by the name without the last extension.
  if (Nox::Path::IsExt(path, "txt")) path = Nox::Path::SetExt(path, "");
  out.SetString(tag.name, path);
  return holds;
}

}  // namespace

bool Container::ExportFilePath(const Tag& tag, TagContainer& out) {
  return ExportFile(tag, name, out);
}

bool Container::ExportFilePathEdit(const Tag& tag, TagContainer& out) {
  return ExportFile(tag, name, out);
}

}  // namespace QELLib
