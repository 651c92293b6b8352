#include "frontend/tool/run_command.h"

#include <iostream>
#include <string_view>

#include "engine/text.h"
#include "frontend/tool/command.h"

namespace morvex {

namespace {

struct Command {
  std::string_view name;
  bool (*run)(const CommandCall& call);
};

constexpr Command kCommands[] = {
    {"version", &CommandVersion},
    {"echo", &CommandEcho},
    {"installcdp", &CommandInstallPackage},
    {"installfrompath", &CommandInstallFromPath},
    {"edit", &CommandEdit},
    {"printconfig", &CommandPrintConfig},
    {"commit", &CommandCommit},
    {"revert", &CommandRevert},
    {"delete", &CommandDelete},
    {"generatekuid", &CommandGenerateKuid},
    {"authors", &CommandAuthors},
    {"searchbycategory", &CommandSearchByCategory},
    {"status", &CommandStatus},
    {"createcdp", &CommandCreatePackage},
    {"backupkeywords", &CommandBackupKeywords},
    {"importkeywords", &CommandImportKeywords},
    {"ff2000", &CommandUpdateFolders},
};

}  // namespace

bool RunCommand(ResultsLog& log, const std::vector<std::string>& argv) {
  const CommandCall call(log, argv);
  const std::string name = Nox::ToLower(call.RawArgument(1));
  for (const Command& command : kCommands) {
    if (command.name == name) return command.run(call);
  }
  std::cerr << "-Invalid argument, please check the help for the list of valid argument\n\n";
  return false;
}

}  // namespace morvex
