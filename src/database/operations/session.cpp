#include "database/operations/session.h"

#include "database/catalogue/database.h"
#include "database/catalogue/folder_setup.h"
#include "engine/log.h"
#include "engine/rand.h"
#include "mesh/plugins.h"

namespace morvex {

namespace {

constexpr const char* kLogKey = "LogStdOut";

}  // namespace

bool InstallationSession::StartEngine(const SessionSettings& settings) {
  engine_ = std::make_unique<Nox::OS>(settings.application, settings.engineOptions);
  if (!engine_->Init()) return false;
  Nox::Options& options = engine_->GetOptions();
  options.Init(settings.program, kLogKey);
  Nox::Log::Init(options);
  Nox::Rand::Global().Randomise();
  kernel_.Init(options, &NoxGetPlugins);
  validator_->StartMeshes(kernel_);
  return true;
}

bool InstallationSession::Start(const SessionSettings& settings) {
  validator_ = std::make_unique<LibraryValidator>(settings.validationFolder);
  if (!StartEngine(settings)) return false;

  ZEBPrepareFolders(settings.root);
  ZEBStartupSettings database;
  database.root = settings.root;
  ZEBInit(database);
  return true;
}

bool InstallationSession::Stop() {
  if (engine_ == nullptr) return true;
  const bool written = ZEBShutdown();
  validator_.reset();
  ZEBReleaseFolders();
  engine_.reset();
  return written;
}

}  // namespace morvex
