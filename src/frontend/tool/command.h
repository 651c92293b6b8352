#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/text.h"
#include "tagdata/kuid.h"

namespace morvex {

class ResultsLog;

// One call of a command: its arguments as they came, and the log its operations report to.
class CommandCall {
 public:
  CommandCall(ResultsLog& log, const std::vector<std::string>& argv)
      : log_(log), argv_(argv), argument_(Nox::ToLower(RawArgument(2))) {}

  ResultsLog& Log() const { return log_; }

  // argv[index] as given; empty if there is none.
  std::string_view RawArgument(std::size_t index) const {
    return index < argv_.size() ? std::string_view(argv_[index]) : std::string_view();
  }
  std::size_t Count() const { return argv_.size(); }

  // The argument behind the command, lower-cased; empty counts as absent.
  const std::string& Argument() const { return argument_; }
  bool HasArgument() const { return !argument_.empty(); }
  KUID ArgumentKuid() const { return KUID(argument_, false); }

 private:
  ResultsLog& log_;
  const std::vector<std::string>& argv_;
  const std::string argument_;
};

// The commands; false is failure.
bool CommandVersion(const CommandCall& call);
bool CommandEcho(const CommandCall& call);
bool CommandInstallPackage(const CommandCall& call);
bool CommandInstallFromPath(const CommandCall& call);
bool CommandEdit(const CommandCall& call);
bool CommandPrintConfig(const CommandCall& call);
bool CommandCommit(const CommandCall& call);
bool CommandRevert(const CommandCall& call);
bool CommandDelete(const CommandCall& call);
bool CommandGenerateKuid(const CommandCall& call);
bool CommandAuthors(const CommandCall& call);
bool CommandSearchByCategory(const CommandCall& call);
bool CommandStatus(const CommandCall& call);
bool CommandCreatePackage(const CommandCall& call);
bool CommandBackupKeywords(const CommandCall& call);
bool CommandImportKeywords(const CommandCall& call);
bool CommandUpdateFolders(const CommandCall& call);

}  // namespace morvex
