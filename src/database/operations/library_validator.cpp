#include "database/operations/library_validator.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_location.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"
#include "validation/qel/validate_asset.h"

namespace morvex {

LibraryValidator::LibraryValidator(std::string_view dataFolder) {
  QELLib::ErrorHandler::Create();
  QELLib::DataManager::Create(dataFolder);
  SetAssetValidator(this);
}

LibraryValidator::~LibraryValidator() {
  SetAssetValidator(nullptr);
  QELLib::DataManager::Destroy();
  QELLib::ErrorHandler::Destroy();
}

void LibraryValidator::StartMeshes(const Nox::RenderKernel& engine) {
  QELLib::DataManager& manager = *QELLib::DataManager::Get();
  manager.SetContext(&engine);
  manager.RegisterMorvexBumpVertexType();
}

bool LibraryValidator::Validate(const KUID& kuid, ResultsLog& log) {
  const ZEBAssetInfo* const record = ZEBAssetCache::Instance().Find(kuid);
  if (record == nullptr) return false;
  const Nox::Location folder = CommittedLocation(*record);
  return QELLib::ValidateAsset(folder.path, folder.pack, log);
}

}  // namespace morvex
