#include "database/catalogue/asset_location.h"

#include "database/catalogue/asset_info.h"
#include "database/catalogue/kuid_generator.h"
#include "engine/path.h"

namespace morvex {
namespace {

Nox::Location BelowRoot(std::string_view path) {
  if (path.empty()) return {};
  return {Nox::PString(), Nox::Path::AddPath(ZEBRoot(), path)};
}

}  // namespace

Nox::Location EditLocation(const ZEBAssetInfo& record) {
  return BelowRoot(record.EditPath());
}

Nox::Location LocalLocation(const ZEBAssetInfo& record) {
  return BelowRoot(record.LocalPath());
}

Nox::Location PackLocation(const ZEBAssetInfo& record) {
  if (!record.IsInPack()) return {};
  return {Nox::PString(record.PackName()), std::string(record.PackPath())};
}

Nox::Location CommittedLocation(const ZEBAssetInfo& record) {
  return record.HasLocalCopy() ? LocalLocation(record) : PackLocation(record);
}

Nox::Location ConfigLocation(const ZEBAssetInfo& record) {
  return record.IsCommitted() ? CommittedLocation(record) : EditLocation(record);
}

}  // namespace morvex
