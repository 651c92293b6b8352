#pragma once

#include <string>
#include <vector>

namespace morvex {

class ResultsLog;

// Runs the command in argv[1] (argv[0] is the program) on the started database. Results go to standard output,
// messages to standard error, and what the operations have to say is printed from `log`. False if it failed.
bool RunCommand(ResultsLog& log, const std::vector<std::string>& argv);

}  // namespace morvex
