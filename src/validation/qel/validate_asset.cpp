#include "validation/qel/validate_asset.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "engine/file.h"
#include "engine/path.h"
#include "frontend/messages/results_log.h"
#include "tagdata/tag_container.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"
#include "validation/qel/finding.h"
#include "validation/qel/texture_files.h"

namespace QELLib {
namespace {

constexpr std::string_view kConfigNames[] = {"config.txt", "config.chump"};

using Findings = std::vector<Finding>;

std::string PlaceOf(const Container* container) {
  std::string place;
  for (; container != nullptr && !container->isRoot; container = container->parent)
    place = Nox::Path::AddPath(container->name, place);
  return place;
}

Finding Describe(const ErrorRecord& record) {
  Finding finding;
  finding.severity = record.severity;
  finding.text = record.text;
  const Container* const container = record.tag != nullptr ? record.tag->parent : record.container;
  if (record.tag != nullptr) finding.tag = record.tag->name;
  if (container != nullptr) finding.container = container->name;
  finding.place = Nox::Path::AddPath(PlaceOf(container), finding.tag);
  return finding;
}

// Takes over what a stage has reported.
void Collect(Findings& findings, bool isDropped) {
  for (const ErrorRecord& record : ErrorHandler::Get()->GetRecords()) {
    findings.push_back(Describe(record));
    findings.back().dropped = isDropped || record.severity == RecordSeverity::kInformation;
  }
}

// A finding's text is final and so an argument, not the format.
void LogFindings(const Findings& findings, morvex::ResultsLog& log) {
  for (const Finding& finding : findings) {
    if (finding.dropped) continue;
    const bool isError = finding.severity == RecordSeverity::kError;
    log.Add(isError ? morvex::Severity::kError : morvex::Severity::kWarning, {}, "%s", 0, finding.text);
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
    manager_.ReleaseAsset();
  }

 private:
  DataManager& manager_ = *DataManager::Get();
};

// The two stages. What they find stays with the ErrorHandler.

bool LoadAsset(std::string_view configPath, std::string_view packName, Container& container) {
  DataManager& manager = *DataManager::Get();
  manager.LoadDefinitions(false);
  manager.SetAsset(packName, Nox::Path::DelName(configPath, false));
  manager.hasAlias = false;
  ErrorHandler::Get()->Clear();

  morvex::TagContainer config;
  const Nox::Location& folder = manager.AssetLocation();
  const std::string path = Nox::Path::AddPath(folder.path, Nox::Path::GetFileName(configPath));
  (void)config.Load(folder.pack, path);  // what can't be read is a configuration without a kind
  return container.Load(config);
}

bool CheckAsset(Container& container) {
  ErrorHandler::Get()->Clear();
  const bool texturesAreGood = CheckTextureFiles(DataManager::Get()->AssetLocation());
  morvex::TagContainer unread;
  const bool tagsAreGood = container.Export(unread);
  return texturesAreGood && tagsAreGood;
}

}  // namespace

bool InspectAsset(std::string_view folder, std::string_view packName, Findings& findings) {
  DataManager& manager = *DataManager::Get();
  const AssetState state;
  manager.SetAsset(packName, folder);
  const std::string_view configName = FindConfig(manager.AssetLocation());
  if (configName.empty()) return false;
  manager.SetConfigName(configName);

  Container container;
  Findings found;
  const bool isLoaded = LoadAsset(Nox::Path::AddPath(folder, configName), packName, container);
  Collect(found, false);
  if (isLoaded) {
    const bool isPassed = CheckAsset(container);
    Collect(found, isPassed);
  }
  const bool isClean = std::none_of(found.begin(), found.end(), [](const Finding& finding) {
    return finding.severity == RecordSeverity::kError && !finding.dropped;
  });
  std::move(found.begin(), found.end(), std::back_inserter(findings));
  return isClean;
}

bool ValidateAsset(std::string_view folder, std::string_view packName, morvex::ResultsLog& log) {
  Findings findings;
  const bool isClean = InspectAsset(folder, packName, findings);
  LogFindings(findings, log);
  return isClean;
}

bool LoadAndReport(std::string_view configPath, std::string_view packName, morvex::ResultsLog& log,
                   Container* container) {
  std::optional<Container> own;
  const bool isLoaded = LoadAsset(configPath, packName, container != nullptr ? *container : own.emplace());
  Findings findings;
  Collect(findings, false);
  LogFindings(findings, log);
  return isLoaded;
}

bool CheckAndReport(Container& container, morvex::ResultsLog& log) {
  const bool isPassed = CheckAsset(container);
  Findings findings;
  Collect(findings, isPassed);
  LogFindings(findings, log);
  return isPassed;
}

}  // namespace QELLib
