// The walk over a configuration, side by side with a definition.

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "tagdata/chunk_kind.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/names.h"
#include "validation/qel/report.h"
#include "validation/qel/soup_children.h"

namespace QELLib {
namespace {

// What a container may lack if its tag "file" says where to find it.
const std::array<Nox::PString, 5> kFoundInFile = {Nox::PString("lifetime"), Nox::PString("maxsize"),
                                                  Nox::PString("minsize"), Nox::PString("rate"),
                                                  Nox::PString("velocity")};

// The name under which the forms of a tag for other languages are defined.
Nox::PString WithoutLanguage(Nox::PString name) {
  for (const Nox::PString base : {kDescription, kUserName}) {
    const std::string_view text = name.View();
    if (text.starts_with(base.View()) && text.substr(base.Length()).starts_with('-')) return base;
  }
  return name;
}

}  // namespace

bool Container::Fill(const TagContainer& ofDefinition, const TagContainer& config) {
  const ContainerDefinition& whole = DataManager::Get()->GetDefinitionCache().Whole(ofDefinition);
  std::vector<Nox::PString> compulsory = CollectCompulsory(ofDefinition);
  CollectObsolete(ofDefinition);
  for (const TagContainer& place : whole.inherited) {
    const std::vector<Nox::PString> more = CollectCompulsory(place);
    compulsory.insert(compulsory.end(), more.begin(), more.end());
    CollectObsolete(place);
  }

  std::unordered_set<Nox::PString> present;
  for (uint32_t i = 0; i < config.GetCount(); ++i) {
    const Nox::PString child = config.GetName(i);
    const morvex::ChunkRef chunk = ChildAt(config, i);
    if (chunk->GetKind() == morvex::ChunkKind::kContainer) {
      present.insert(child);
      if (!FillChild(ofDefinition, child, TagContainer(chunk))) return false;
      continue;
    }
    const std::string value = TextOf(*chunk);
    if (value.empty()) continue;
    present.insert(child);
    FillTag(ofDefinition, child, value);
  }
  std::erase_if(compulsory, [&](Nox::PString tagName) { return present.contains(tagName); });
  AddMissingTags(ofDefinition, compulsory);
  return true;
}

bool Container::FillChild(const TagContainer& ofDefinition, Nox::PString child, const TagContainer& config) {
  TagContainer entry;
  if (!FindChildDefinition(child, ofDefinition, entry)) {
    ReportUnknownChild(child);
    return true;
  }
  const EntryDefinition& known = DataManager::Get()->GetDefinitionCache().Entry(entry);
  const bool isTooDeep = depth_ + 1 >= morvex::kMaxSoupDepth;
  if (!isTooDeep && !known.containerTypes.empty()) return FillContainer(entry, child, config);
  if (!isTooDeep && known.form == EntryDefinition::Form::kElement) return FillElement(entry, child, config);
  const bool isSmoke = known.isSmoke || entry.Chunk() == GetKindDefinition(kSmoke).Chunk();
  if (!isTooDeep && isSmoke) return FillSmoke(child, config);
  ReportError(*this, kEntryChildNotBuilt, child);
  return true;
}

void Container::ReportUnknownChild(Nox::PString child) {
  if (IsObsolete(child)) {
    ReportWarning(kEntryObsoleteTag, child, name);
  } else {
    ReportError(*this, kEntryUnknownTag, child, name);
  }
  if (child == kCacheSoup) ReportError(kEntryCacheSoup);
}

bool Container::FillContainer(const TagContainer& entry, Nox::PString child, const TagContainer& config) {
  const Nox::PString kind = SelectContainerType(entry, config.GetText(kKind));
  std::unique_ptr<Container> made = CreateChild(child, *this, kind, static_cast<int32_t>(children.size()));
  if (made == nullptr) return false;
  DataManager::Get()->AddSourceEntry(name, SourceEntry(*made));
  const TagContainer possibilities = made->definition;
  return FillMade(std::move(made), possibilities, config);
}

bool Container::FillElement(const TagContainer& entry, Nox::PString child, const TagContainer& config) {
  const Nox::PString kind = DataManager::Get()->GetDefinitionCache().Entry(entry).elementType;
  std::unique_ptr<Container> made = CreateChild(child, *this, kind, static_cast<int32_t>(children.size()));
  if (made == nullptr) return false;
  // An entry may bring its own list of tags; the element's definition is then only walked.
  const bool ownTags = entry.GetContainer(kSubPossibilities).IsValid();
  const TagContainer possibilities = ownTags ? entry : made->definition;
  return FillMade(std::move(made), possibilities, config);
}

bool Container::FillSmoke(Nox::PString child, const TagContainer& config) {
  std::unique_ptr<Container> made = CreateChild(child, *this, kSmoke, static_cast<int32_t>(children.size()));
  if (made == nullptr) return false;
  const TagContainer possibilities = made->definition;
  return FillMade(std::move(made), possibilities, config);
}

bool Container::FillMade(std::unique_ptr<Container> made, const TagContainer& possibilities,
                         const TagContainer& config) {
  made->Build(possibilities, true);
  made->SetupRules(made->definition);
  children.push_back(std::move(made));
  Container& added = *children.back();
  return added.Fill(added.definition, config);
}

TagContainer Container::FindTagEntry(const TagContainer& ofDefinition, Nox::PString tagName) const {
  Definitions& definitions = DataManager::Get()->GetDefinitionCache();
  const ContainerDefinition& whole = definitions.Whole(ofDefinition);
  const Nox::PString wanted = WithoutLanguage(tagName);
  TagContainer entry = whole.subPossibilities.GetContainer(wanted);
  if (entry.IsValid()) return entry;
  for (const TagContainer& place : whole.inherited) {
    const ContainerDefinition& inheritedWhole = definitions.Whole(place);
    entry = inheritedWhole.subPossibilities.GetContainer(wanted);
    if (entry.IsEmpty()) entry = inheritedWhole.tagArray;
    if (entry.IsValid()) return entry;
  }
  return whole.tagArray;
}

void Container::FillTag(const TagContainer& ofDefinition, Nox::PString tagName, const std::string& value) {
  const TagContainer entry = FindTagEntry(ofDefinition, tagName);
  std::unique_ptr<Tag> tag = CreateTag(*this, tagName, entry, &value);
  if (tag == nullptr) return;
  tag->SetupRules(entry);
  AddTag(std::move(tag));
}

void Container::AddMissingTags(const TagContainer& ofDefinition, const std::vector<Nox::PString>& missing) {
  const bool hasFile = tags.Find(kFile) != nullptr;
  for (const Nox::PString tagName : missing) {
    const bool isExcused =
        hasFile && std::find(kFoundInFile.begin(), kFoundInFile.end(), tagName) != kFoundInFile.end();
    if (isExcused) continue;
    const TagContainer entry = FindTagEntry(ofDefinition, tagName);
    std::unique_ptr<Tag> tag = CreateTag(*this, tagName, entry, nullptr);
    if (tag == nullptr) continue;
    tag->SetupRules(entry);
    ReportWarning(*tag, kEntryCompulsoryMissing, tagName);
    AddTag(std::move(tag));
  }
}

}  // namespace QELLib
