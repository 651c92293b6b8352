#pragma once

#include <string>
#include <string_view>

#include "database/operations/session.h"
#include "host/console.h"
#include "host/exit_code.h"
#include "tagdata/kuid.h"

namespace morvex::host {

// What every command takes.
struct CommonOptions {
  std::string root;  // empty: the folder above the program's own
  bool json = false;
  Console::Colours colours = Console::Colours::kAuto;
};

// One run of the program: its streams, and the installation from the moment a command asks for it. For the main
// thread.
class Host {
 public:
  explicit Host(const CommonOptions& options);

  const Console& console() const { return console_; }
  // A machine reads the results.
  bool WantsJson() const { return options_.json; }

  // Starts the installation and waits until its database can be used. False, with the reason on standard error.
  [[nodiscard]] bool Open();
  // Lets other programs have the installation for as long as this one doesn't ask its database anything.
  void LetOthersIn() const;
  // Ends what was opened. False, with a message, if the index couldn't be written.
  [[nodiscard]] bool Close();

  // Says why and what to do about it.
  ExitCode Fail(ExitCode code, std::string_view message) const;
  ExitCode RefuseUnknown(const KUID& kuid) const;

 private:
  void WaitForDatabase() const;

  const CommonOptions options_;
  const Console console_;
  InstallationSession session_;
};

}  // namespace morvex::host
