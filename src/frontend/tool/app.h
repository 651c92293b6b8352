#pragma once

#include <string>
#include <vector>

#include "database/operations/session.h"

namespace morvex {

// What the start-up leaves and the tear-down consumes.
struct AppContext {
  InstallationSession session;
};

// Starts the engine and the database; the index loads on a thread of its own behind it. The program's folder
// becomes the current folder, and the folder above it is the installation's root. False, with a message on
// standard error, if the run can't go on.
bool AppStartup(AppContext& context, const std::vector<std::string>& argv);

// Writes the index, which every load leaves to be written, and ends what AppStartup started. False, with a
// message on standard error, if the index couldn't be written.
bool AppShutdown(AppContext& context);

}  // namespace morvex
