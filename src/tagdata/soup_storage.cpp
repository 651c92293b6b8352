#include <cstdio>
#include <span>

#include "engine/read_file.h"
#include "engine/replace_file.h"
#include "tagdata/chump_file.h"
#include "tagdata/chunk_writer.h"
#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"
#include "tagdata/text_match.h"

// Soups as files: loading, saving, printing.
namespace morvex {
namespace {

std::string_view ExtensionOf(std::string_view path, std::string_view extension) {
  if (extension.empty()) {
    const size_t point = path.rfind('.');
    return point == std::string_view::npos ? std::string_view() : path.substr(point + 1);
  }
  if (extension.front() == '.') extension.remove_prefix(1);
  return extension;
}

bool SaveBinary(const TagContainer& container, Nox::LocationView location) {
  ChunkWriter writer;
  if (container.Chunk() != nullptr) AppendChildren(writer, *container.Chunk());
  Nox::ReplaceFile file;
  return file.Open(location) && writer.WriteParts([&](std::string_view part) { return file.Write(part); }) &&
         file.Commit();
}

}  // namespace

SoupFormat SoupFormatOf(std::string_view path, std::string_view extension) {
  extension = ExtensionOf(path, extension);
  if (CompareNoCase(extension, "txt")) return SoupFormat::kText;
  for (const char* binary : {"chump", "cdp", "cdp2"}) {
    if (CompareNoCase(extension, binary)) return SoupFormat::kBinary;
  }
  return SoupFormat::kNone;
}

bool TagContainer::Load(const Nox::PString& base, std::string_view path, std::string_view extension) {
  const SoupFormat format = SoupFormatOf(path, extension);
  if (format == SoupFormat::kNone) return false;
  const auto bytes = Nox::ReadWholeFile({base, path});
  if (!bytes) return false;
  if (format == SoupFormat::kText) {
    ParseSoupText(*this, bytes->Text(), false);
  } else {
    *this = ReadChumpImage(ACSRawDataCore::ShareBytes(*bytes));
  }
  return true;
}

bool TagContainer::Save(const Nox::PString& base, std::string_view path, std::string_view extension) const {
  switch (SoupFormatOf(path, extension)) {
    case SoupFormat::kText:
      return Nox::WriteFileReplacing({base, path}, SoupText(*this));
    case SoupFormat::kBinary:
      return SaveBinary(*this, {base, path});
    case SoupFormat::kNone:
      break;
  }
  return false;
}

void TagContainer::Print() const {
  const std::string text = SoupText(*this);
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
}

}  // namespace morvex
