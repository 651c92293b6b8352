// Export of tags that name other assets.

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_status.h"
#include "tagdata/kuid.h"
#include "validation/categories/category_expression.h"
#include "validation/qel/container.h"
#include "validation/qel/export_check.h"
#include "validation/qel/names.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

using morvex::KUID;

KUID ValueOf(const Tag& tag) {
  return KUID(tag.value, false);
}

bool HasName(const Tag& tag, Nox::PString containerName) {
  if (!tag.name.Empty()) return true;
  ReportError(tag, kEntryEmptyName, tag.name, containerName);
  return false;
}

// An asset that isn't here may still come, so only one that is here can be the wrong one.
bool FitsDatabase(const Tag& tag) {
  if (tag.parent->name == kObsoleteTable) return true;
  const KUID named = ValueOf(tag);
  if (named.IsNull()) {
    ReportWarning(tag, kEntryNullKuid, tag.name);
    return true;
  }
  const KUID kuid = morvex::ZEBFindReplacement(named);
  morvex::ZEBAssetStatus status;
  if (!morvex::ZEBGetAssetStatus(kuid, status)) {
    ReportWarning(tag, kEntryKuidUnknown, kuid.TagText());
    return true;
  }
  if (!status.installed) {
    ReportWarning(tag, kEntryKuidNotInstalled, kuid.TagText());
    return true;
  }
  if (tag.category.Empty() || morvex::MatchExpression(status.category, tag.category)) return true;
  ReportError(tag, kEntryKuidCategory, tag.name);
  return false;
}

}  // namespace

bool Container::ExportKuid(const Tag& tag, TagContainer& out) {
  out.SetKUID(tag.name, ValueOf(tag));
  return PassesRules(tag);
}

bool Container::ExportStringKuid(const Tag& tag, TagContainer& out) {
  const bool holds = PassesRules(tag);
  const bool isNamed = HasName(tag, name);
  out.SetKUID(tag.name.ToLower(), ValueOf(tag));
  return holds && isNamed;
}

bool Container::ExportKuidBrowser(const Tag& tag, TagContainer& out) {
  const bool holds = PassesRules(tag);
  const bool fits = FitsDatabase(tag);
  out.SetKUID(tag.name, ValueOf(tag));
  return holds && fits;
}

bool Container::ExportStringKuidBrowser(const Tag& tag, TagContainer& out) {
  const bool holds = PassesRules(tag);
  const bool isNamed = HasName(tag, name);
  const bool fits = FitsDatabase(tag);
  out.SetKUID(tag.name.ToLower(), ValueOf(tag));
  return holds && isNamed && fits;
}

}  // namespace QELLib
