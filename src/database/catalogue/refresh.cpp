// How the tables follow the folders and configurations of the assets.

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/config_reader.h"
#include "database/catalogue/database.h"
#include "database/catalogue/dependency_list.h"
#include "database/catalogue/kuid_generator.h"
#include "engine/file.h"
#include "engine/path.h"
#include "engine/time.h"

namespace morvex {
namespace {

void DropMissingFolder(ZEBAssetInfo& record, AssetText which) {
  const std::string_view path = record.Text(which);
  if (path.empty() || Nox::File::IsFolder(Nox::Path::AddPath(ZEBRoot(), path))) return;
  record.SetText(which, {});
}

// Takes the path over unless both are set and differ.
bool Agree(const ZEBAssetInfo& record, const ZEBAssetInfo& found, AssetText which) {
  const std::string_view mine = record.Text(which);
  const std::string_view other = found.Text(which);
  return mine.empty() || other.empty() || mine == other;
}

}  // namespace

bool ZEBAssetCache::Refresh(ZEBAssetInfo& record) {
  DropMissingFolder(record, AssetText::kLocalPath);
  DropMissingFolder(record, AssetText::kEditPath);
  obsoletedKnown_ = false;
  if (!record.IsInstalled()) {
    DropConfigOf(record);
    return true;
  }
  // While it is edited the record keeps saying what the committed copy says.
  if (record.IsOpen() && record.IsCommitted()) return false;
  const TagContainer config = ReadConfig(record);
  if (!record.Fill(config, false)) return false;
  UpdateDerivedFrom(record, config);
  return true;
}

void ZEBAssetCache::UpdateDerived(ZEBAssetInfo& record, bool full) {
  DropConfigOf(record);
  if (full) {
    UpdateDerivedFrom(record, Config(record));
  } else {
    ForgetDependants(record.kuid_);
  }
}

void ZEBAssetCache::UpdateDerivedFrom(ZEBAssetInfo& record, const TagContainer& config) {
  ForgetDependants(record.kuid_);  // of what the record stood in for until now
  RemoveObsoletes(record);
  KeepConfig(record, config);
  if (record.IsCommitted()) UpdateObsoletesFrom(record, config);

  AssetNumbers numbers = record.Numbers();
  numbers.modifiedTime = Nox::TimeStamp();
  if (numbers.installedTime == 0 && !record.Has(AssetFlag::kBuiltIn)) {
    numbers.installedTime = numbers.modifiedTime;
  }
  record.SetNumbers(numbers);
  dependencies.Set(record.kuid_, DependenciesIn(config, record.kuid_));
  ForgetDependants(record.kuid_);  // and of what it stands in for now
}

void ZEBAssetCache::AddScanned(ZEBAssetInfo&& found, const TagContainer& config) {
  ZEBAssetInfo* known = Find(found.kuid_);
  if (known == nullptr) {
    UpdateDerivedFrom(Keep(std::move(found)), config);
  } else if (Merge(*known, found)) {
    Refresh(*known);
  }
}

bool ZEBAssetCache::Merge(ZEBAssetInfo& record, const ZEBAssetInfo& found) {
  constexpr AssetText kPaths[] = {AssetText::kEditPath, AssetText::kLocalPath, AssetText::kPackPath};
  for (const AssetText path : kPaths) {
    if (!Agree(record, found, path)) return false;
  }
  if (record.kuid_ != found.kuid_) return false;
  AssetTexts texts = record.Texts();
  const auto take = [&](AssetText which) {
    const std::string_view value = found.Text(which);
    if (!value.empty()) texts[static_cast<size_t>(which)] = value;
  };
  for (const AssetText path : kPaths)
    take(path);
  take(AssetText::kPackName);
  record.SetTexts(texts);
  for (const AssetState bit : {AssetState::kOnStation, AssetState::kDlsItem}) {
    if (found.Has(bit)) record.Set(bit, true);
  }
  if (found.Has(AssetFlag::kBuiltIn)) record.Set(AssetFlag::kBuiltIn, true);
  return true;
}

}  // namespace morvex
