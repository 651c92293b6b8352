#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

// Runs a program to its end, its output going to the file. True if it exits with 0.
bool RunProgram(const std::vector<std::string>& command, const std::string& outputFile);

// A server that a test starts for itself, in a process group of its own. It is stopped with this object, by its own
// number, and ends with the test if that dies.
class ServerProcess {
 public:
  // Waits until the port of 127.0.0.1 takes connections. Throws, with what the server said, if it never does.
  ServerProcess(const std::vector<std::string>& command, std::uint16_t port, const std::string& outputFile);
  ~ServerProcess() { Stop(); }
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;

  void Stop();

 private:
  bool HasEnded();

  pid_t id_;
};

// Writes a text for a server to read; throws if it can't.
void PutText(const std::string& path, const std::string& text);
// The whole of a file; empty if there is none.
std::string GetText(const std::string& path);
