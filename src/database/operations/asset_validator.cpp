#include "database/operations/asset_validator.h"

namespace morvex {
namespace {

AssetValidator* currentValidator = nullptr;

}  // namespace

void SetAssetValidator(AssetValidator* validator) {
  currentValidator = validator;
}

AssetValidator* CurrentAssetValidator() {
  return currentValidator;
}

}  // namespace morvex
