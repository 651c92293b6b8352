#pragma once

#include <cstdint>
#include <string>

namespace Nox {

// The path of the running program's file. Empty if the system doesn't tell.
[[nodiscard]] std::string ExecutablePath();

[[nodiscard]] std::uint32_t GetCurrentProcessId();

// False once the process has ended, also if its parent hasn't collected it yet.
[[nodiscard]] bool IsProcessAlive(std::uint32_t id);

// Relative paths start in this folder from now on. For all threads.
bool SetCurrentFolder(const std::string& path);

// Flushes standard output and standard error and ends the process at once: no destructors, no waiting for
// threads. If the output can't be written, a code of 0 becomes `failureCode`.
[[noreturn]] void TerminateProcess(std::uint8_t exitCode, std::uint8_t failureCode = 255);

}  // namespace Nox
