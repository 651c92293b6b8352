#include "frontend/tool/app.h"

#include <algorithm>
#include <iostream>

#include "database/catalogue/database.h"
#include "database/catalogue/folder_setup.h"
#include "engine/log.h"
#include "engine/path.h"
#include "engine/process.h"
#include "engine/rand.h"
#include "engine/text.h"

namespace morvex {

namespace {

constexpr const char* kApplicationName = "Morvex Util";
constexpr const char* kValidationFolder = "QELData/";
constexpr const char* kNullRenderOptions = "-NullRender -LogFile=/dev/null";
constexpr const char* kHiddenWindowOptions = "-render=OpenGL -hidewindow -LogFile=/dev/null";

bool AsksForNoRender(const std::vector<std::string>& argv) {
  return std::any_of(argv.begin(), argv.end(),
                     [](const std::string& argument) { return Nox::EqualsIgnoreCase(argument, "norender"); });
}

bool StartEngine(AppContext& context, const std::vector<std::string>& argv) {
  context.os = std::make_unique<Nox::OS>(kApplicationName,
                                         AsksForNoRender(argv) ? kNullRenderOptions : kHiddenWindowOptions);
  if (!context.os->Init()) {
    std::cerr << "-Os failed\n";
    return false;
  }
  Nox::Options& options = context.os->GetOptions();
  options.Init("MorvexUtil", "LogStdOut");
  Nox::Log::Init(options);
  Nox::Rand::Global().Randomise();
  return true;
}

}  // namespace

bool AppStartup(AppContext& context, const std::vector<std::string>& argv) {
  const std::string folder = Nox::Path::DelName(Nox::Path::Normalize(Nox::ExecutablePath()), false);
  if (!Nox::SetCurrentFolder(folder)) {
    std::cerr << "-Os failed\n";
    return false;
  }
  context.validator = std::make_unique<LibraryValidator>(Nox::Path::AddPath(folder, kValidationFolder));
  if (!StartEngine(context, argv)) return false;

  const std::string root = Nox::Path::PrevDir(folder);
  ZEBPrepareFolders(root);
  ZEBStartupSettings settings;
  settings.root = root;
  ZEBInit(settings);
  return true;
}

bool AppShutdown(AppContext& context) {
  const bool written = ZEBShutdown();
  if (!written) std::cerr << "-The asset index could not be written\n";
  context.validator.reset();
  ZEBReleaseFolders();
  context.os.reset();
  return written;
}

}  // namespace morvex
