#include "host/host.h"

#include <cstdlib>
#include <optional>

#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "database/catalogue/instance_ownership.h"
#include "engine/file.h"
#include "engine/path.h"
#include "engine/process.h"
#include "engine/time.h"
#include "host/interrupt.h"
#include "host/paths.h"

namespace morvex::host {

namespace Path = Nox::Path;

namespace {

constexpr std::string_view kValidationFolder = "QELData";
constexpr const char* kRootVariable = "MORVEX_ROOT";
constexpr std::string_view kUsualProgramFolder = "bin";
// How long another program may have the installation before the user hears of it.
constexpr unsigned kPatienceMs = 1500;
constexpr unsigned kPollMs = 1;

struct Installation {
  std::string root;
  std::string validationFolder;
};

std::string ProgramFolder() {
  return Path::DelName(Path::Normalize(Nox::ExecutablePath()), false);
}

// The definitions lie beside the programs, and that folder may have any name.
std::string ValidationFolderOf(const std::string& root) {
  const std::string own = ProgramFolder();
  const bool isOwn = Path::PrevDir(own) == root;
  return Path::AddPath(isOwn ? own : Path::AddPath(root, kUsualProgramFolder), kValidationFolder);
}

// What the user named, else what the environment names, else the folder above the program's own.
std::string ChooseRoot(const std::string& wanted) {
  if (!wanted.empty()) return AbsolutePath(wanted);
  const char* const variable = std::getenv(kRootVariable);
  if (variable != nullptr && *variable != '\0') return AbsolutePath(variable);
  return Path::PrevDir(ProgramFolder());
}

// Where the programs were copied to some other place, the folder above them must not be taken for an installation:
// folders would be made and emptied there.
std::optional<Installation> FindInstallation(const std::string& root) {
  Installation found{root, ValidationFolderOf(root)};
  const std::string texts = Path::AddPath(root, "data/interfacetext");
  const bool isOne = Nox::File::IsFolder(found.validationFolder) || Nox::File::Exists(texts + ".chump") ||
                     Nox::File::Exists(texts + ".txt");
  if (!isOne) return std::nullopt;
  return found;
}

}  // namespace

Host::Host(const CommonOptions& options) : options_(options), console_(options.colours) {}

bool Host::Open() {
  const std::string root = ChooseRoot(options_.root);
  const std::optional<Installation> found = FindInstallation(root);
  if (!found) {
    console_.Error("There is no installation in \"" + root + "\". Name its folder with --root <folder>.");
    return false;
  }
  const SessionSettings settings = {
      .root = found->root,
      .validationFolder = Path::AddSlash(found->validationFolder),
      .application = "Morvex Host",
      .program = "MorvexHost",
      .engineOptions = "-render=OpenGL -hidewindow -LogFile=/dev/null",
  };
  if (!session_.Start(settings)) {
    console_.Error("The engine couldn't be started.");
    return false;
  }
  WaitForDatabase();
  CatchInterrupts();
  return true;
}

// Until the database is this process's own, Ctrl-C ends it at once: nothing was changed.
void Host::WaitForDatabase() const {
  for (unsigned waited = 0; waited < kPatienceMs && !Ownership().IsHeld(); waited += kPollMs)
    Nox::Delay(kPollMs);
  if (!Ownership().IsHeld())
    console_.Note("Waiting for another program that uses this installation. Ctrl-C gives up.");
  const ZEBAssetLock lock(false);
}

void Host::LetOthersIn() const {
  ZEBReleaseOwnership();
}

bool Host::Close() {
  if (session_.Stop()) return true;
  console_.Error(
      "The index of the installation couldn't be written. The next run will make it from the folders.");
  return false;
}

ExitCode Host::Fail(ExitCode code, std::string_view message) const {
  console_.Error(message);
  return code;
}

ExitCode Host::RefuseUnknown(const KUID& kuid) const {
  return Fail(ExitCode::kNotFound,
              "There is no asset " + kuid.TagText() + " here. 'MorvexHost list' shows all that is known.");
}

}  // namespace morvex::host
