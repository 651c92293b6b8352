#include "validation/qel/validate_asset.h"

#include <optional>
#include <string>

#include "engine/file.h"
#include "engine/path.h"
#include "frontend/messages/results_log.h"
#include "tagdata/tag_container.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"
#include "validation/qel/texture_files.h"

namespace QELLib {
namespace {

constexpr std::string_view kConfigNames[] = {"config.txt", "config.chump"};

// A record's text is final and so an argument, not the format.
void LogRecords(morvex::ResultsLog& log) {
  for (const ErrorRecord& record : ErrorHandler::Get()->GetRecords()) {
    if (record.severity == RecordSeverity::kInformation) continue;
    const bool isError = record.severity == RecordSeverity::kError;
    log.Add(isError ? morvex::Severity::kError : morvex::Severity::kWarning, {}, "%s", 0, record.text);
  }
}

// The name of the configuration in the asset's folder; empty if there is none.
std::string_view FindConfig(const Nox::Location& folder) {
  for (const std::string_view name : kConfigNames) {
    if (Nox::File::Exists({folder.pack, Nox::Path::AddPath(folder.path, name)})) return name;
  }
  return {};
}

// What the manager holds of an asset ends with its validation.
class AssetState {
 public:
  AssetState() = default;
  AssetState(const AssetState&) = delete;
  AssetState& operator=(const AssetState&) = delete;
  ~AssetState() {
    manager_.ClearMeshes();
    manager_.loadFailed = false;
    manager_.isMeshUnread = false;
    manager_.ReleaseAsset();
  }

 private:
  DataManager& manager_ = *DataManager::Get();
};

}  // namespace

bool ValidateAsset(std::string_view folder, std::string_view packName, morvex::ResultsLog& log) {
  const size_t errors = log.ErrorCount();
  DataManager& manager = *DataManager::Get();
  const AssetState state;
  manager.SetAsset(packName, folder);
  const std::string_view configName = FindConfig(manager.AssetLocation());
  if (configName.empty()) return false;
  manager.SetConfigName(configName);

  Container container;
  const std::string configPath = Nox::Path::AddPath(folder, configName);
  if (LoadAndReport(configPath, packName, log, &container)) CheckAndReport(container, log);
  return log.ErrorCount() == errors;
}

bool LoadAndReport(std::string_view configPath, std::string_view packName, morvex::ResultsLog& log,
                   Container* container) {
  DataManager& manager = *DataManager::Get();
  manager.LoadDefinitions(false);
  manager.SetAsset(packName, Nox::Path::DelName(configPath, false));
  manager.hasAlias = false;
  ErrorHandler::Get()->Clear();

  morvex::TagContainer config;
  const Nox::Location& folder = manager.AssetLocation();
  const std::string path = Nox::Path::AddPath(folder.path, Nox::Path::GetFileName(configPath));
  (void)config.Load(folder.pack, path);  // what can't be read is a configuration without a kind

  std::optional<Container> own;
  Container& target = container != nullptr ? *container : own.emplace();
  const bool isLoaded = target.Load(config);
  LogRecords(log);
  return isLoaded;
}

bool CheckAndReport(Container& container, morvex::ResultsLog& log) {
  ErrorHandler::Get()->Clear();
  const bool texturesAreGood = CheckTextureFiles(DataManager::Get()->AssetLocation());
  morvex::TagContainer unread;
  const bool tagsAreGood = container.Export(unread);
  if (texturesAreGood && tagsAreGood) return true;
  LogRecords(log);
  return false;
}

}  // namespace QELLib
