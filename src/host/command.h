#pragma once

#include <functional>
#include <span>

#include "host/exit_code.h"

namespace CLI {
class App;
}

namespace morvex::host {

class Host;

// What a command line asks for.
using Run = std::function<ExitCode(Host&)>;

// One command of the program. Its file declares what it takes and does it; the table is all that knows of it.
struct Command {
  const char* name;
  const char* summary;
  // Declares options, arguments and examples. When the command was chosen, `run` becomes what it does.
  void (*declare)(CLI::App& command, Run& run);
};

std::span<const Command> Commands();

void DeclareArchive(CLI::App& command, Run& run);
void DeclareClone(CLI::App& command, Run& run);
void DeclareCompletion(CLI::App& command, Run& run);
void DeclareConvert(CLI::App& command, Run& run);
void DeclareDeps(CLI::App& command, Run& run);
void DeclareFetch(CLI::App& command, Run& run);
void DeclareList(CLI::App& command, Run& run);
void DeclareMesh(CLI::App& command, Run& run);
void DeclarePackage(CLI::App& command, Run& run);
void DeclareReport(CLI::App& command, Run& run);
void DeclareShow(CLI::App& command, Run& run);
void DeclareStation(CLI::App& command, Run& run);
void DeclareUpload(CLI::App& command, Run& run);
void DeclareValidate(CLI::App& command, Run& run);

}  // namespace morvex::host
