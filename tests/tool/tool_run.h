#pragma once

#include <string>
#include <vector>

#include "tests/scratch_folder.h"

// What one run of the program left: its streams, whole, and its exit code (128 and the signal's number if one
// ended it).
struct ToolResult {
  std::string out;
  std::string err;
  int code = -1;
};

// A ready installation in a scratch folder of its own, as `cmake --install` makes it, and a home for its settings.
class Installation {
 public:
  Installation();

  const std::string& root() const { return folder_.path(); }
  std::string operator/(const std::string& name) const { return folder_ / name; }

  // Runs the installed program from another folder, with `input` as its standard input.
  ToolResult Run(const std::vector<std::string>& arguments, const std::string& input = "") const;
  // The same of another program that was put beside it.
  ToolResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                        const std::string& input = "") const;

  // Starts the program without waiting for it; the caller waits for, or ends, the process id.
  int Start(const std::vector<std::string>& arguments) const;

 private:
  ScratchFolder folder_;
};

// Files of a test, text or binary.
void WriteFile(const std::string& path, const std::string& content);
std::string ReadFile(const std::string& path);
bool Exists(const std::string& path);
// The names of a folder's entries, sorted, or its files with their paths below it.
std::vector<std::string> Entries(const std::string& folder);
std::vector<std::string> FilesBelow(const std::string& folder);
