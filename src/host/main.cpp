#include <cstdio>
#include <iostream>

#include "engine/process.h"
#include "host/command_line.h"

int main(int argc, char** argv) {
  // Some of the library's services print what failed. That is no part of the results, which a machine may read.
  std::ios::sync_with_stdio(false);
  stdout = stderr;
  const auto code = static_cast<int>(morvex::host::RunCommandLine(argc, argv));
  std::cout.flush();
  // The services of the library end with the process.
  Nox::TerminateProcess(static_cast<std::uint8_t>(code),
                        static_cast<std::uint8_t>(morvex::host::ExitCode::kFailed));
}
