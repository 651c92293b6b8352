#pragma once

#include <memory>
#include <string>

#include "database/operations/library_validator.h"
#include "engine/options.h"
#include "engine/render_kernel.h"

namespace morvex {

struct SessionSettings {
  std::string root;              // the installation's folder, absolute
  std::string validationFolder;  // definitions and tables; where it is missing, no asset passes
  std::string application;       // as the engine knows it
  std::string program;           // begins the lines of the log
  std::string engineOptions;
};

// What a program holds while it works on an installation: the engine and its log, the services of the validation,
// the packs, the database. A process has one at a time, on its main thread.
class InstallationSession {
 public:
  InstallationSession() = default;
  ~InstallationSession() { Stop(); }
  InstallationSession(const InstallationSession&) = delete;
  InstallationSession& operator=(const InstallationSession&) = delete;

  // Makes the folders of the installation where they are missing. The index loads on a thread of its own behind
  // this call; the first ZEBAssetLock waits for it, and for other programs that have the installation. False if
  // the engine can't start.
  [[nodiscard]] bool Start(const SessionSettings& settings);

  // Writes the index, which every load leaves to be written, and ends what Start began. False if the index
  // couldn't be written: what the run changed is then found from the folders by the next one. Nothing happens
  // where nothing was started.
  bool Stop();

 private:
  bool StartEngine(const SessionSettings& settings);

  std::unique_ptr<Nox::OS> engine_;
  Nox::RenderKernel kernel_;
  std::unique_ptr<LibraryValidator> validator_;
};

}  // namespace morvex
