#include "frontend/tool/app.h"

#include <algorithm>
#include <iostream>

#include "engine/path.h"
#include "engine/process.h"
#include "engine/text.h"

namespace morvex {

namespace {

constexpr const char* kValidationFolder = "QELData/";
constexpr const char* kNullRenderOptions = "-NullRender -LogFile=/dev/null";
constexpr const char* kHiddenWindowOptions = "-render=OpenGL -hidewindow -LogFile=/dev/null";

bool AsksForNoRender(const std::vector<std::string>& argv) {
  return std::any_of(argv.begin(), argv.end(),
                     [](const std::string& argument) { return Nox::EqualsIgnoreCase(argument, "norender"); });
}

}  // namespace

bool AppStartup(AppContext& context, const std::vector<std::string>& argv) {
  const std::string folder = Nox::Path::DelName(Nox::Path::Normalize(Nox::ExecutablePath()), false);
  const SessionSettings settings = {
      .root = Nox::Path::PrevDir(folder),
      .validationFolder = Nox::Path::AddPath(folder, kValidationFolder),
      .application = "Morvex Util",
      .program = "MorvexUtil",
      .engineOptions = AsksForNoRender(argv) ? kNullRenderOptions : kHiddenWindowOptions,
  };
  const bool started = Nox::SetCurrentFolder(folder) && context.session.Start(settings);
  if (!started) std::cerr << "-Os failed\n";
  return started;
}

bool AppShutdown(AppContext& context) {
  const bool written = context.session.Stop();
  if (!written) std::cerr << "-The asset index could not be written\n";
  return written;
}

}  // namespace morvex
