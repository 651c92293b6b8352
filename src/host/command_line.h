#pragma once

#include <memory>

#include "host/command.h"
#include "host/exit_code.h"

namespace CLI {
class App;
}

namespace morvex::host {

struct CommonOptions;

inline constexpr const char* kProgramName = "MorvexHost";

// The command line of the program with all its commands. `common` and `run` outlive it and are filled in when a
// command line is parsed.
std::unique_ptr<CLI::App> MakeCommandLine(CommonOptions& common, Run& run);

// Parses a command line and does what it asks for.
ExitCode RunCommandLine(int argc, const char* const* argv);

}  // namespace morvex::host
