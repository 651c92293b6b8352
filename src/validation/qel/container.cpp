#include "validation/qel/container.h"

#include <utility>

#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"
#include "validation/qel/names.h"
#include "validation/qel/report.h"

namespace QELLib {

Container::~Container() {
  ErrorHandler* const handler = ErrorHandler::Get();
  DataManager* const manager = DataManager::Get();
  if (handler != nullptr) handler->RemoveContainer(this);
  if (manager == nullptr) return;
  manager->RemoveMesh(*this);
  if (parent != nullptr) return;
  // Tags tell the manager that they go, so they go first.
  children.clear();
  tags = TagList();
  optionalTags = TagList();
  manager->ClearMeshes();
  manager->ClearSourceEntries();
}

void Container::AddTag(std::unique_ptr<Tag> tag) {
  tags.Add(std::move(tag));
}

std::unique_ptr<Tag> Container::NewTag(int32_t tagIndex, Container& container, Nox::PString tagName) {
  return std::make_unique<Tag>(tagIndex, container, tagName);
}

std::unique_ptr<Tag> Container::CreateTag(Container& container, Nox::PString tagName,
                                          const TagContainer& entry, const std::string* configValue) {
  if (container.tags.Find(tagName) != nullptr) return nullptr;
  std::unique_ptr<Tag> tag = NewTag(static_cast<int32_t>(container.tags.Size()), container, tagName);
  const EntryDefinition& known = DataManager::Get()->GetDefinitionCache().Entry(entry);
  if (configValue != nullptr) tag->value = *configValue;
  if (tag->value.empty() && known.hasDefault) {
    tag->value = known.defaultValue == "parent" ? container.name.Text() : known.defaultValue;
  }
  if (configValue != nullptr && !known.compulsory) RemoveOptionalTag(tagName, container);
  SetTagType(*tag, entry, container);
  return tag;
}

std::unique_ptr<Container> Container::CreateChild(Nox::PString childName, Container& childParent,
                                                  Nox::PString kind, int32_t childIndex) {
  TagContainer found = GetKindDefinition(kind);
  if (found.IsEmpty()) {
    ReportError(*this, kEntryNoKindDefinition, kind);
    return nullptr;
  }
  auto child = std::make_unique<Container>();
  child->name = childName;
  child->kindName = kind;
  child->parent = &childParent;
  child->index = childIndex;
  child->depth_ = childParent.depth_ + 1;
  child->allDefinitions = allDefinitions;
  child->savingName = found.GetString(kSavingName);
  child->definition = std::move(found);
  return child;
}

void Container::RemoveOptionalTag(Nox::PString tagName, Container& container) {
  container.optionalTags.Remove(tagName);
}

void Container::SetupRules(const TagContainer& ofDefinition) {
  for (const BoundContainerRule& bound : DataManager::Get()->GetDefinitionCache().Whole(ofDefinition).rules) {
    rules.push_back(bound.rule);
    ruleArguments.push_back(bound.parameters);
  }
}

void Container::SetExtensions(const TagContainer& soup) {
  extensions = soup;
}

const Container* Container::FindChild(std::string_view child) const {
  for (const std::unique_ptr<Container>& candidate : children) {
    if (candidate->name == child) return candidate.get();
  }
  return nullptr;
}

}  // namespace QELLib
