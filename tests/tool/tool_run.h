#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/scratch_folder.h"
#include "tests/test_files.h"

// What one run of the program left: its streams, whole, and its exit code (128 and the signal's number if one
// ended it).
struct ToolResult {
  std::string out;
  std::string err;
  int code = -1;
};

// Replaces this process by a program of this path.
[[noreturn]] inline void Execute(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments)
    argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  execv(program.c_str(), argv.data());
  _exit(127);
}

// A ready installation in a scratch folder of its own, as `cmake --install` makes it, and a home for its settings.
class Installation {
 public:
  Installation() {
    namespace fs = std::filesystem;
    fs::create_directories(root() + "/bin");
    fs::create_directories(root() + "/data");
    fs::copy_file(MORVEX_TOOL, root() + "/bin/MorvexUtil");
    fs::copy(MORVEX_QELDATA, root() + "/bin/QELData");
    fs::copy_file(MORVEX_DATA "/interfacetext.txt", root() + "/data/interfacetext.txt");
  }

  const std::string& root() const { return folder_.path(); }
  std::string operator/(const std::string& name) const { return folder_ / name; }

  // Runs the installed program from another folder, with `input` as its standard input.
  ToolResult Run(const std::vector<std::string>& arguments, const std::string& input = "") const {
    return RunProgram("MorvexUtil", arguments, input);
  }
  // The same of another program that was put beside it.
  ToolResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                        const std::string& input = "") const {
    const ScratchFolder streams;
    PutFile(streams / "in", input);
    const int child = Spawn(program, arguments, streams / "in", streams / "out", streams / "err");
    int status = 0;
    waitpid(child, &status, 0);
    return {GetFile(streams / "out"), GetFile(streams / "err"),
            WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status)};
  }

  // Starts a program without waiting for it; the caller waits for, or ends, the process id.
  int Start(const std::vector<std::string>& arguments, const std::string& program = "MorvexUtil") const {
    return Spawn(program, arguments, "/dev/null", "/dev/null", "/dev/null");
  }

 private:
  // Starts a program with the three streams bound to files; gives the process id.
  int Spawn(const std::string& name, const std::vector<std::string>& arguments, const std::string& in,
            const std::string& out, const std::string& err) const {
    const pid_t child = fork();
    if (child != 0) return child;
    setenv("MORVEX_PRODUCTS", (root() + "/products.txt").c_str(), 1);
    const auto bind = [](const std::string& path, int flags, int stream) {
      const int file = open(path.c_str(), flags, 0666);
      if (file < 0 || dup2(file, stream) < 0) _exit(126);
      if (file != stream) close(file);
    };
    bind(in, O_RDONLY, STDIN_FILENO);
    bind(out, O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
    bind(err, O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
    if (chdir("/") != 0) _exit(126);
    Execute(root() + "/bin/" + name, arguments);
  }

  ScratchFolder folder_;
};

// Files of a test, text or binary.
inline void WriteFile(const std::string& path, const std::string& content) {
  PutFile(path, content);
}
inline std::string ReadFile(const std::string& path) {
  return GetFile(path);
}
inline bool Exists(const std::string& path) {
  return std::filesystem::exists(path);
}

// The names of a folder's entries, sorted.
inline std::vector<std::string> Entries(const std::string& folder) {
  std::vector<std::string> names;
  if (Exists(folder)) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}
// Its files with their paths below it.
inline std::vector<std::string> FilesBelow(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) names.push_back(std::filesystem::relative(entry.path(), folder));
  }
  std::sort(names.begin(), names.end());
  return names;
}
