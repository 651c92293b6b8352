#include "validation/qel/data_manager.h"

#include <algorithm>
#include <utility>

#include "database/catalogue/kuid_generator.h"
#include "engine/file.h"
#include "engine/path.h"
#include "engine/text.h"
#include "validation/qel/message_table.h"
#include "validation/qel/names.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

std::unique_ptr<DataManager>& Instance() {
  static std::unique_ptr<DataManager> manager;
  return manager;
}

}  // namespace

std::string_view MessageText(MessageEntry entry) {
  const DataManager* const manager = DataManager::Get();
  return manager == nullptr ? std::string_view() : manager->GetString(entry).View();
}

void DataManager::Create(std::string_view dataFolder) {
  Create(std::make_unique<DataManager>(), dataFolder);
}

void DataManager::Create(std::unique_ptr<DataManager> manager, std::string_view dataFolder) {
  Instance() = std::move(manager);
  Instance()->Initialize(dataFolder);
}

DataManager* DataManager::Get() {
  return Instance().get();
}

void DataManager::Destroy() {
  if (Instance() == nullptr) return;
  Instance()->Shutdown();
  Instance().reset();
}

DataManager::~DataManager() = default;

void DataManager::SetContext(const Nox::RenderKernel* engine) {
  engine_ = engine;
}

void DataManager::OnMeshChanged() {}
void DataManager::OnSourcesChanged() {}
void DataManager::OnAttachmentUsersChanged() {}
void DataManager::OnUniqueAttachmentUsersChanged() {}

void DataManager::Initialize(std::string_view dataFolder) {
  dataFolder_ = Nox::Path::AddSlash(dataFolder);
  language_ = ProductLanguage();
  strings_ = ReadMessageTable(dataFolder_, language_);
  hasDataFolder_ = Nox::File::IsFolder(dataFolder_);
  if (!hasDataFolder_) return;
  detailsSaved_ = HasPersonalDetails(dataFolder_);
  personalDetails_ = savedDetails_ = ReadPersonalDetails(dataFolder_);
}

// A run that changed nothing leaves the file alone.
void DataManager::Shutdown() {
  const bool isSaved = detailsSaved_ && personalDetails_ == savedDetails_;
  if (hasDataFolder_ && !isSaved) WritePersonalDetails(dataFolder_, personalDetails_);
}

Nox::PString DataManager::GetString(uint32_t index) const {
  return index < strings_.size() ? strings_[index] : Nox::PString();
}

void DataManager::LoadDefinitions(bool force) {
  ReadTables();
  if (definitionsLoaded_ && !force) return;
  definitions_.Load(dataFolder_);
  definitionsLoaded_ = true;
}

// Runs that validate nothing do without the tables.
void DataManager::ReadTables() {
  if (tablesRead_ || !hasDataFolder_) return;
  tablesRead_ = true;
  lineTables_ = ReadLineTables(dataFolder_);
  newFormKinds_ = ReadNewFormKinds(dataFolder_);
}

const LineTable& DataManager::GetLineTable(Nox::PString fileName) {
  static const LineTable kNone;
  ReadTables();
  const auto found = lineTables_.find(fileName);
  return found == lineTables_.end() ? kNone : found->second;
}

bool DataManager::IsNewFormKind(const TagContainer& config) {
  ReadTables();
  const std::string kind = Nox::ToLower(config.GetText(kKind));
  return std::any_of(newFormKinds_.begin(), newFormKinds_.end(),
                     [&](Nox::PString known) { return known == kind; });
}

void DataManager::SetAsset(std::string_view packName, std::string_view path) {
  ReleaseAsset();
  packName_ = packName;
  assetPath_ = path;
  assetLocation_ = {Nox::PString(packName), std::string(path)};
  if (packName.empty()) {
    const std::string root = Nox::Path::Normalize(morvex::ZEBRoot());
    const std::string whole = Nox::Path::Normalize(path);
    if (!Nox::Path::IsBelow(root, whole)) return;
    const std::string below = whole.substr(Nox::Path::AddSlash(root).size());
    const size_t end = below.find(Nox::Path::kSeparator);
    packName_ = below.substr(0, end);
    assetPath_ = end == below.npos ? "" : below.substr(end + 1);
  }
  pack_.emplace(Nox::PString(packName_));
  if (pack_->Database() != nullptr) resources_ = pack_->Database();
}

void DataManager::ReleaseAsset() {
  resources_ = &hostFiles_;
  pack_.reset();
}

std::string DataManager::GetPackRoot() const {
  return packName_.empty() ? morvex::ZEBRoot() : packName_;
}

}  // namespace QELLib
