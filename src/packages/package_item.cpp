#include "packages/package_item.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <utility>

#include "engine/number_text.h"
#include "packages/asset_lists.h"
#include "packages/fingerprint.h"
#include "packages/package_tags.h"
#include "tagdata/kuid_list.h"

namespace morvex {
namespace {

using namespace PackageTags;

// The number that a tag of a table bears as its name; -1 for any other name.
int32_t TagNumber(std::string_view name) {
  int32_t number = -1;
  return Nox::ScanInt(name, number) ? number : -1;
}

// Appends what the table lacks, numbered on from its highest number. Numbers in use stay.
void AppendMissing(TagContainer& table, const KUIDList& kuids) {
  int64_t highest = -1;
  std::unordered_set<KUID> present;
  for (uint32_t i = 0; i < table.GetCount(); ++i) {
    const Nox::PString name = table.GetName(i);
    highest = std::max<int64_t>(highest, TagNumber(name));
    if (const KUID kuid = table.GetKUID(name); !kuid.IsNull()) present.insert(kuid);
  }
  for (const KUID& kuid : kuids) {
    if (!present.contains(kuid)) table.SetKUID(Nox::PString(std::to_string(++highest)), kuid);
  }
}

void MergeDependencies(TagContainer& config, const KUIDList& dependencies) {
  TagContainer table = config.GetContainer(kKuidTable);
  if (table.GetCount() == 0) {
    config.SetContainer(kKuidTable, dependencies.ToContainer());
  } else if (!dependencies.IsEmpty()) {
    AppendMissing(table, dependencies);
  }
}

}  // namespace

PackageItem::PackageItem() {
  SetCompression(kLzssCompression);
}

KUID PackageItem::GetKUID() const {
  return soup.GetKUID(kKuid);
}

Nox::PString PackageItem::GetCompression() const {
  return soup.GetString(kCompression);
}

TagContainer PackageItem::GetFiles() const {
  return soup.GetContainer(kFiles);
}

void PackageItem::SetCompression(std::string_view value) {
  soup.SetString(kCompression, value);
}

void PackageItem::SetConfig(const TagContainer& config) {
  const Nox::PString compression = GetCompression();
  soup.Clear();
  soup.CopyFrom(config);
  SetCompression(compression);
}

void PackageItem::SetFiles(TagContainer files) {
  soup.SetContainer(kFiles, std::move(files));
}

void PackageItem::ExtractConfig(TagContainer& out) const {
  out.CopyFrom(soup);
  for (const Nox::PString& tag : {kFiles, kDsid, kCompression, kFolderIcon})
    out.Remove(tag);
  const Nox::PString kind = soup.GetString(kKind);
  if (kind.ToLower() != kind) out.SetString(kKind, kind.ToLower());
  if (out.HasTag(kCache)) out.Remove(kCache);

  KUIDList dependencies;
  CollectDependencies(soup, GetKUID(), dependencies);
  MergeDependencies(out, dependencies);
}

bool PackageItem::CheckDsid() const {
  return soup.GetString(kDsid) == DsidText(GetFiles());
}

void PackageItem::UpdateDsid() {
  soup.SetString(kDsid, DsidText(GetFiles()));
}

}  // namespace morvex
