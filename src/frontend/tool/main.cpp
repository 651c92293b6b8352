#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "engine/process.h"
#include "engine/text.h"
#include "frontend/messages/results_log.h"
#include "frontend/tool/app.h"
#include "frontend/tool/batch_file.h"
#include "frontend/tool/help_text.h"
#include "frontend/tool/run_command.h"
#include "tagdata/morvex_ex.h"

namespace {

constexpr int kNotStarted = -1;
constexpr std::uint8_t kSuccess = 0;
constexpr std::uint8_t kFailure = 255;

// Runs the command, or the file of commands. None if there is no such file.
std::optional<bool> Run(const std::vector<std::string>& arguments) {
  morvex::ResultsLog log;
  try {
    if (!arguments[1].starts_with('@')) return morvex::RunCommand(log, arguments);
    return morvex::RunBatchFile(log, arguments[0], arguments[1].substr(1));
  } catch (const morvex::MorvexEx& failure) {
    std::cerr << '-' << failure.what() << '\n';
    return false;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv, argv + argc);
  const bool hasCommand = arguments.size() >= 2;
  if (!hasCommand || Nox::EqualsIgnoreCase(arguments[1], "help")) {
    std::cout << morvex::kHelpText << '\n' << std::flush;
    return hasCommand && std::cout ? kSuccess : kNotStarted;
  }

  morvex::AppContext context;
  if (!morvex::AppStartup(context, arguments)) return kNotStarted;

  const std::optional<bool> succeeded = Run(arguments);
  const bool written = morvex::AppShutdown(context);
  if (!succeeded) return kNotStarted;
  Nox::TerminateProcess(*succeeded && written ? kSuccess : kFailure, kFailure);
}
