#pragma once

namespace morvex::host {

// How a run ends. docs/host.md and the man page list these.
enum class ExitCode : int {
  kSuccess = 0,
  kFaulty = 1,          // done, and the answer is no: an asset has errors, a package is damaged
  kUsage = 2,           // the command line isn't one
  kNotFound = 3,        // an asset or a file that was named isn't there or can't be read
  kFailed = 4,          // something couldn't be done or written
  kNoInstallation = 5,  // there is no installation, or its database can't be used
  kInterrupted = 130,   // by Ctrl-C
};

}  // namespace morvex::host
