// Which definition or entry speaks for a child.

#include <algorithm>

#include "engine/number_text.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/names.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

constexpr std::string_view kStringTablePrefix = "string-table-";

bool IsNumber(std::string_view name) {
  return name == "0" || Nox::ReadInt(name) != 0;
}

// The entry for children whose names no definition can list.
TagContainer FindArrayEntry(const TagContainer& arrayElement, std::string_view child) {
  const bool isNumber = IsNumber(child);
  for (uint32_t i = 0; i < arrayElement.GetCount(); ++i) {
    TagContainer entry = arrayElement.GetContainerAt(i);
    if (entry.GetBool(kAnyName) || (isNumber && entry.GetBool(kNumArray))) return entry;
  }
  return {};
}

}  // namespace

TagContainer Container::GetKindDefinition(Nox::PString kind) const {
  return allDefinitions.GetContainer(kind);
}

TagContainer Container::FindDefinition(const TagContainer& ofDefinition, Nox::PString child) const {
  const ContainerDefinition& whole = DataManager::Get()->GetDefinitionCache().Whole(ofDefinition);
  TagContainer entry = whole.subPossibilities.GetContainer(child);
  return entry.IsValid() ? entry : FindArrayEntry(whole.arrayElement, child);
}

bool Container::FindChildDefinition(Nox::PString child, const TagContainer& ofDefinition,
                                    TagContainer& entry) {
  const auto look = [&](const TagContainer& place) {
    entry = FindDefinition(place, child);
    if (entry.IsEmpty() && child.View().starts_with(kStringTablePrefix))
      entry = FindDefinition(place, kStringTable);
    return entry.IsValid();
  };
  if (look(ofDefinition)) return true;
  for (const TagContainer& place : DataManager::Get()->GetDefinitionCache().Whole(ofDefinition).inherited) {
    if (look(place)) return true;
  }
  if (child.View().starts_with(kSmoke.View())) entry = GetKindDefinition(kSmoke);
  if (entry.IsEmpty() && !IsObsolete(child)) ReportError(*this, kEntryNoChildDefinition, child);
  return entry.IsValid();
}

Nox::PString Container::SelectContainerType(const TagContainer& entry, std::string_view kind) const {
  const std::vector<std::string>& types =
      DataManager::Get()->GetDefinitionCache().Entry(entry).containerTypes;
  const auto fits = std::find_if(types.begin(), types.end(),
                                 [&](const std::string& type) { return type.find(kind) != type.npos; });
  if (fits != types.end()) return Nox::PString(*fits);
  return types.empty() ? Nox::PString() : Nox::PString(types.front());
}

std::vector<Nox::PString> Container::CollectCompulsory(const TagContainer& ofDefinition) const {
  return DataManager::Get()->GetDefinitionCache().Whole(ofDefinition).compulsory;
}

void Container::CollectObsolete(const TagContainer& ofDefinition) {
  const ContainerDefinition& whole = DataManager::Get()->GetDefinitionCache().Whole(ofDefinition);
  obsoleteTags.insert(obsoleteTags.end(), whole.obsolete.begin(), whole.obsolete.end());
}

bool Container::IsObsolete(Nox::PString tagName) const {
  return std::find(obsoleteTags.begin(), obsoleteTags.end(), tagName) != obsoleteTags.end();
}

}  // namespace QELLib
