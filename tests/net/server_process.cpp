#include "tests/net/server_process.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

constexpr int kWaits = 2000;  // of 10 ms each

pid_t Start(const std::vector<std::string>& command, const std::string& outputFile) {
  std::vector<char*> arguments;
  for (const std::string& argument : command)
    arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const pid_t parent = getpid();
  const pid_t id = fork();
  if (id != 0) return id;
  // Only calls that are safe behind a fork of a program with threads.
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != parent) _exit(126);
  const int output = open(outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  const int input = open("/dev/null", O_RDONLY);
  dup2(input, STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  dup2(output, STDERR_FILENO);
  close_range(STDERR_FILENO + 1, ~0U, 0);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

bool TakesConnections(std::uint16_t port) {
  const int probe = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const bool taken = connect(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(probe);
  return taken;
}

}  // namespace

bool RunProgram(const std::vector<std::string>& command, const std::string& outputFile) {
  const pid_t id = Start(command, outputFile);
  int status = -1;
  return id > 0 && waitpid(id, &status, 0) == id && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

ServerProcess::ServerProcess(const std::vector<std::string>& command, std::uint16_t port,
                             const std::string& outputFile)
    : id_(Start(command, outputFile)) {
  for (int i = 0; i < kWaits && !HasEnded(); ++i) {
    if (TakesConnections(port)) return;
    usleep(10000);
  }
  Stop();
  throw std::runtime_error(command[0] + " doesn't start: " + GetText(outputFile));
}

bool ServerProcess::HasEnded() {
  if (id_ > 0 && waitpid(id_, nullptr, WNOHANG) == id_) id_ = -1;
  return id_ <= 0;
}

void ServerProcess::Stop() {
  for (int i = 0; i < kWaits && !HasEnded(); ++i) {
    kill(-id_, i < kWaits / 4 ? SIGTERM : SIGKILL);  // the group: some serve each connection by a child
    usleep(10000);
  }
}

void PutText(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  if (!file.flush()) throw std::runtime_error("can't write " + path);
}

std::string GetText(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}
