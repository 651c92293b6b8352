#include "engine/process.h"

#include <signal.h>
#include <stdio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

namespace Nox {
namespace {

// The letter for a process's state in the system's table: the first behind the name, which stands in round
// brackets and may hold some itself. 0 if there is no table.
char StateOf(pid_t id) {
  std::array<char, 512> text;
  FILE* file = fopen(("/proc/" + std::to_string(id) + "/stat").c_str(), "re");
  if (file == nullptr) return 0;
  const std::size_t length = fread(text.data(), 1, text.size(), file);
  fclose(file);
  const std::string_view line(text.data(), length);
  const std::size_t nameEnd = line.rfind(") ");
  return nameEnd == std::string_view::npos || nameEnd + 2 >= length ? '\0' : line[nameEnd + 2];
}

}  // namespace

std::string ExecutablePath() {
  std::array<char, 4096> path;
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  return length <= 0 ? std::string() : std::string(path.data(), static_cast<std::size_t>(length));
}

std::uint32_t GetCurrentProcessId() {
  return static_cast<std::uint32_t>(getpid());
}

bool IsProcessAlive(std::uint32_t id) {
  const auto process = static_cast<pid_t>(id);
  if (process <= 0 || (kill(process, 0) != 0 && errno == ESRCH)) return false;
  const char state = StateOf(process);
  return state != 'Z' && state != 'X';
}

bool SetCurrentFolder(const std::string& path) {
  return chdir(path.c_str()) == 0;
}

void TerminateProcess(std::uint8_t exitCode, std::uint8_t failureCode) {
  const bool printed = fflush(stdout) == 0 && ferror(stdout) == 0;
  fflush(stderr);
  _exit(printed || exitCode != 0 ? exitCode : failureCode);
}

}  // namespace Nox
