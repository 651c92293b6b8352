#include <string>

#include "database/catalogue/asset_info.h"
#include "database/catalogue/folder_size.h"
#include "engine/path.h"
#include "engine/text.h"
#include "tagdata/tag_container.h"
#include "validation/categories/asset_name.h"
#include "validation/categories/category_class.h"
#include "validation/categories/category_expression.h"
#include "validation/categories/eras.h"
#include "validation/categories/keyword_index.h"
#include "validation/categories/regions.h"

namespace morvex {
namespace {

// From this build on, a configuration says itself what may be done with the asset.
constexpr int kFirstBuildWithPrivileges = 250;

namespace tag {
const Nox::PString kKuid("kuid");
const Nox::PString kCategoryKeyword("category-keyword");
const Nox::PString kCompany("company");
const Nox::PString kMapKuid("map-kuid");
const Nox::PString kProductType("product-type");
const Nox::PString kPrivileges("privileges");
const Nox::PString kPermitCommit("permit-commit");
const Nox::PString kPermitEdit("permit-edit");
const Nox::PString kSecret("secret");
}  // namespace tag

std::string KeywordsOf(const TagContainer& config) {
  std::string words = config.GetText(tag::kCategoryKeyword);
  if (words.empty()) words = KeywordsFromText(config.GetText(tag::kCompany));
  return Nox::ToLower(words);
}

std::string_view FolderPathOf(const ZEBAssetInfo& record) {
  if (record.HasLocalCopy()) return record.LocalPath();
  return record.IsInPack() ? record.PackPath() : record.EditPath();
}

struct Privileges {
  bool commit = true;
  bool edit = true;
  bool listing = true;
};

Privileges PrivilegesOf(const TagContainer& config, float build, bool builtIn) {
  const TagContainer given = config.GetContainer(tag::kPrivileges);
  const bool secret = config.GetInt(tag::kSecret) != 0;
  Privileges result;
  // A build that isn't a sane number counts as a late one.
  const bool old = build < 1000 && static_cast<int>(build * 100) < kFirstBuildWithPrivileges;
  if (old && given.GetCount() == 0) {
    const bool isTemplate = Nox::EqualsIgnoreCase(config.GetText(tag::kProductType), "template");
    result.listing = !(secret && isTemplate);
    return result;
  }
  result.listing = !secret;
  if (builtIn) {
    result.commit = given.GetInt(tag::kPermitCommit, 1) != 0;
    result.edit = given.GetInt(tag::kPermitEdit, 1) != 0;
  }
  return result;
}

}  // namespace

bool ZEBAssetInfo::Fill(const TagContainer& config, bool readKuid) {
  if (config.GetCount() == 0) return false;
  if (readKuid) {
    const KUID kuid = config.GetKUID(tag::kKuid);
    if (kuid.IsNull()) return false;
    kuid_ = kuid;
  }

  const std::string categoryClass = GetCategoryClass(config);
  const std::string username = GetAssetName(config, FolderPathOf(*this));
  const std::string regions = GetRegionList(config);
  const std::string eras = GetEraList(config);
  const std::string keywords = KeywordsOf(config);

  AssetNumbers numbers = Numbers();
  numbers.mapKuid = MatchExpression(categoryClass, "SS") ? config.GetKUID(tag::kMapKuid) : KUID();
  if (!FolderSizeKnown()) SetFolderSize(AssetFolderSize(*this));
  if (numbers.build == 0) numbers.build = GetBuildVersion(config);

  AssetTexts texts = Texts();
  const auto set = [&](AssetText which, const std::string& text) {
    texts[static_cast<size_t>(which)] = text;
  };
  set(AssetText::kCategoryClass, categoryClass);
  set(AssetText::kUsername, username);
  set(AssetText::kRegionList, regions);
  set(AssetText::kEraList, eras);
  set(AssetText::kKeywords, keywords);
  SetTextsAndNumbers(texts, numbers);

  Set(AssetState::kReskin, Nox::EqualsIgnoreCase(config.GetText(tag::kProductType), "reskin"));
  Set(AssetState::kArchivedKnown, false);
  const Privileges privileges = PrivilegesOf(config, numbers.build, Has(AssetFlag::kBuiltIn));
  Set(AssetFlag::kPermitCommit, privileges.commit);
  Set(AssetFlag::kPermitEdit, privileges.edit);
  SetPermitListing(privileges.listing);
  return true;
}

}  // namespace morvex
