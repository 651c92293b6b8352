// From a definition to what a container may hold.

#include <unordered_set>
#include <utility>

#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"

namespace QELLib {
namespace {

// The definitions that an entry makes children of.
void AppendNamed(const EntryDefinition& entry, std::vector<Nox::PString>& names) {
  if (entry.form == EntryDefinition::Form::kElement) names.push_back(entry.elementType);
  for (const std::string& type : entry.containerTypes)
    names.emplace_back(type);
}

}  // namespace

void Container::Build(const TagContainer& ofDefinition, bool loading) {
  const ContainerDefinition& whole = DataManager::Get()->GetDefinitionCache().Whole(ofDefinition);
  inherited = whole.inheritedNames;
  for (const ContainerDefinition::Possibility& possibility : whole.possibilities) {
    const EntryDefinition& entry = *possibility.entry;
    if (entry.form != EntryDefinition::Form::kValue || (entry.compulsory && loading)) continue;
    std::unique_ptr<Tag> tag = CreateTag(*this, possibility.name, entry.soup, nullptr);
    if (tag == nullptr) continue;
    tag->SetupRules(entry.soup);
    if (entry.compulsory) {
      AddTag(std::move(tag));
    } else {
      optionalTags.Add(std::move(tag));
    }
  }
}

// Definitions name each other in circles, so each is followed once.
std::vector<TagContainer> Container::ContainerTypes() const {
  Definitions& definitions = DataManager::Get()->GetDefinitionCache();
  std::vector<TagContainer> types;
  std::unordered_set<Nox::PString> seen;
  std::vector<TagContainer> ahead = {definition};
  while (!ahead.empty()) {
    const ContainerDefinition& whole = definitions.Whole(ahead.back());
    ahead.pop_back();
    std::vector<Nox::PString> names;
    for (const ContainerDefinition::Possibility& possibility : whole.possibilities)
      AppendNamed(*possibility.entry, names);
    for (uint32_t i = 0; i < whole.arrayElement.GetCount(); ++i)
      AppendNamed(definitions.Entry(whole.arrayElement.GetContainerAt(i)), names);
    for (const Nox::PString named : names) {
      TagContainer found = GetKindDefinition(named);
      if (found.IsEmpty() || !seen.insert(named).second) continue;
      types.push_back(found);
      ahead.push_back(std::move(found));
    }
  }
  return types;
}

}  // namespace QELLib
