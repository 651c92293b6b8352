#pragma once

#include <optional>
#include <string>

namespace morvex {

class ResultsLog;

// Runs every line of a command file as a command of its own, with one log for all. A failing line doesn't stop
// the file. A line of 512 bytes or more fails as a whole. False if a line
// failed; none, with a message on standard error, if there is no such file.
std::optional<bool> RunBatchFile(ResultsLog& log, const std::string& program, const std::string& name);

}  // namespace morvex
