#include "tests/tool/tool_run.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

constexpr const char* kTool = "MorvexUtil";

// Starts `program` in its folder's parent with the three streams bound to files; gives the process id.
int Spawn(const std::string& root, const std::string& name, const std::vector<std::string>& arguments,
          const std::string& in, const std::string& out, const std::string& err) {
  const std::string program = root + "/bin/" + name;
  const pid_t child = fork();
  if (child != 0) return child;
  setenv("MORVEX_PRODUCTS", (root + "/products.txt").c_str(), 1);
  const auto bind = [](const std::string& path, int flags, int stream) {
    const int file = open(path.c_str(), flags, 0666);
    if (file < 0 || dup2(file, stream) < 0) _exit(126);
    if (file != stream) close(file);
  };
  bind(in, O_RDONLY, STDIN_FILENO);
  bind(out, O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
  bind(err, O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
  if (chdir("/") != 0) _exit(126);
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments)
    argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  execv(program.c_str(), argv.data());
  _exit(127);
}

}  // namespace

Installation::Installation() {
  fs::create_directories(root() + "/bin");
  fs::create_directories(root() + "/data");
  fs::copy_file(MORVEX_TOOL, root() + "/bin/MorvexUtil");
  fs::copy(MORVEX_QELDATA, root() + "/bin/QELData");
  fs::copy_file(MORVEX_DATA "/interfacetext.txt", root() + "/data/interfacetext.txt");
}

ToolResult Installation::Run(const std::vector<std::string>& arguments, const std::string& input) const {
  return RunProgram(kTool, arguments, input);
}

ToolResult Installation::RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                                    const std::string& input) const {
  const ScratchFolder streams;
  WriteFile(streams / "in", input);
  const int child = Spawn(root(), program, arguments, streams / "in", streams / "out", streams / "err");
  int status = 0;
  waitpid(child, &status, 0);
  ToolResult result;
  result.out = ReadFile(streams / "out");
  result.err = ReadFile(streams / "err");
  result.code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result;
}

int Installation::Start(const std::vector<std::string>& arguments) const {
  return Spawn(root(), kTool, arguments, "/dev/null", "/dev/null", "/dev/null");
}

void WriteFile(const std::string& path, const std::string& content) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << content;
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

bool Exists(const std::string& path) {
  return fs::exists(path);
}

std::vector<std::string> Entries(const std::string& folder) {
  std::vector<std::string> names;
  if (fs::is_directory(folder)) {
    for (const auto& entry : fs::directory_iterator(folder))
      names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> FilesBelow(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) names.push_back(fs::relative(entry.path(), folder).string());
  }
  std::sort(names.begin(), names.end());
  return names;
}
