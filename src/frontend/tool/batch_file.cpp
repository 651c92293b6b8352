#include "frontend/tool/batch_file.h"

#include <array>
#include <iostream>
#include <string_view>
#include <vector>

#include "engine/file.h"
#include "frontend/tool/batch_line.h"
#include "frontend/tool/run_command.h"

namespace morvex {

namespace {

constexpr std::size_t kLineSize = 512;

// The length of the first line in `text` with its end: LF, CR LF or CR. 0 if it doesn't end there.
std::size_t LineLength(std::string_view text) {
  const std::size_t end = text.find_first_of("\r\n");
  if (end == std::string_view::npos) return 0;
  return end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
}

// Runs one line; what stands in it decides alone. A line from which no argument comes is an invalid command.
bool RunLine(ResultsLog& log, const std::string& program, std::string_view text) {
  std::vector<std::string> arguments = SplitBatchLine(text);
  if (IsIdleLine(arguments)) return true;
  arguments.insert(arguments.begin(), program);
  const bool succeeded = RunCommand(log, arguments);
  std::cout << '\n';
  return succeeded;
}

// Reads on to the end of the line.
void SkipLine(Nox::File& file) {
  std::array<char, kLineSize> buffer;
  while (!file.Eof()) {
    const std::uint64_t start = file.Tell();
    const std::string_view text(buffer.data(), file.Read(buffer.data(), buffer.size()));
    if (const std::size_t length = LineLength(text)) {
      file.Seek(static_cast<std::int64_t>(start + length));
      return;
    }
  }
}

// The next line. One that doesn't fit is read to its end, and none of it is kept: half a command could do harm.
std::string ReadBatchLine(Nox::File& file) {
  std::array<char, kLineSize - 1> buffer;
  const std::uint64_t start = file.Tell();
  std::string_view text(buffer.data(), file.Read(buffer.data(), buffer.size()));
  if (const std::size_t length = LineLength(text)) {
    file.Seek(static_cast<std::int64_t>(start + length));
    return std::string(text.substr(0, length));
  }
  if (file.Eof()) return std::string(text);
  SkipLine(file);
  return "\"";
}

}  // namespace

std::optional<bool> RunBatchFile(ResultsLog& log, const std::string& program, const std::string& name) {
  Nox::File file;
  if (!file.Open(name, Nox::OpenMode::kRead)) {
    std::cerr << "-The file \"" << name << "\" does not exist, please specify a valid filename\n";
    return std::nullopt;
  }
  bool succeeded = true;
  do {
    const std::string line = ReadBatchLine(file);
    if (!line.empty()) succeeded = RunLine(log, program, line) && succeeded;
  } while (!file.Eof());
  return succeeded;
}

}  // namespace morvex
