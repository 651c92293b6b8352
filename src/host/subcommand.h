#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "host/command.h"

namespace morvex::host {

class Host;

// Declares a command of a command, which does its work with the options that all of its kind share.
template <typename Options>
CLI::App* AddSubcommand(CLI::App& command, Run& run, const std::shared_ptr<Options>& options,
                        const char* name, const char* summary, ExitCode (*action)(Host&, const Options&)) {
  CLI::App* const added = command.add_subcommand(name, summary)->group("Commands");
  added->callback(
      [options, action, &run] { run = [options, action](Host& host) { return action(host, *options); }; });
  return added;
}

}  // namespace morvex::host
