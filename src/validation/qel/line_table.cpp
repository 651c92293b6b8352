#include "validation/qel/line_table.h"

#include <string>

#include "engine/file.h"
#include "engine/find.h"
#include "engine/path.h"
#include "engine/text.h"
#include "validation/qel/message_entries.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

constexpr size_t kMaxLine = 256;
constexpr std::string_view kNewFormFile = "newFormTemplate.txt";

// The next line without its line end; false at the end of the file. A longer line counts as several.
bool NextLine(Nox::File& file, std::string& line) {
  char buffer[kMaxLine + 1];
  const size_t size = file.ReadLine(buffer, sizeof buffer);
  line.assign(buffer, size);
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
    line.pop_back();
  return size != 0;
}

LineEntry Split(std::string_view line) {
  const size_t blank = line.find(' ');
  if (blank == line.npos || blank + 1 >= line.size()) return {Nox::PString(line), {}};
  return {Nox::PString(line.substr(0, blank)), Nox::PString(line.substr(blank + 1))};
}

}  // namespace

LineTables ReadLineTables(std::string_view folder) {
  LineTables tables;
  const auto entries = Nox::ListFolder(folder);
  if (!entries) {
    ReportError(kEntryDataFolderUnreadable);
    return tables;
  }
  for (const Nox::DirEntry& entry : *entries) {
    if (entry.isDir) continue;
    Nox::File file;
    if (!file.Open(Nox::Path::AddPath(folder, entry.name), Nox::OpenMode::kRead)) {
      ReportError(kEntryDataFileUnreadable, entry.name);
      continue;
    }
    LineTable& table = tables[Nox::PString(entry.name)];
    for (std::string line; NextLine(file, line);)
      table.push_back(Split(line));
  }
  return tables;
}

std::vector<Nox::PString> ReadNewFormKinds(std::string_view folder) {
  std::vector<Nox::PString> kinds;
  Nox::File file;
  if (file.Open(Nox::Path::AddPath(folder, kNewFormFile), Nox::OpenMode::kRead)) {
    for (std::string line; NextLine(file, line);)
      kinds.emplace_back(Nox::ToLower(line));
  }
  kinds.emplace_back("bridge");
  return kinds;
}

}  // namespace QELLib
