// The values that tags offer to each other, and those who take them.

#include <algorithm>

#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"

namespace QELLib {

std::string_view SourceEntry::Value() const {
  return tag_ != nullptr ? std::string_view(tag_->value) : container_->name.View();
}

void DataManager::AddSourceUser(Nox::PString source, const Tag& tag) {
  sourceUsers_[source].push_back(&tag);
  OnSourcesChanged();
}

void DataManager::AddSourceEntry(Nox::PString source, SourceEntry entry) {
  offersTags_ |= entry.GetTag() != nullptr;
  sourceEntries_[source].push_back(entry);
  OnSourcesChanged();
}

void DataManager::AddAttachmentUser(const Tag& tag) {
  if (std::find(attachmentUsers_.begin(), attachmentUsers_.end(), &tag) == attachmentUsers_.end())
    attachmentUsers_.push_back(&tag);
  OnAttachmentUsersChanged();
}

void DataManager::AddUniqueAttachmentUser(const Tag& tag) {
  uniqueAttachmentUsers_.push_back(&tag);
  OnUniqueAttachmentUsersChanged();
}

bool DataManager::IsValueInSource(std::string_view value, Nox::PString source) const {
  const auto entries = sourceEntries_.find(source);
  if (entries != sourceEntries_.end()) {
    for (const SourceEntry& entry : entries->second) {
      if (entry.Value() == value) return true;
    }
  }
  return std::any_of(meshes_.begin(), meshes_.end(),
                     [&](const auto& loaded) { return loaded.second.mesh->HasAttachment(value); });
}

void DataManager::RemoveTag(const Tag& tag) {
  for (auto& [source, users] : sourceUsers_)
    std::erase(users, &tag);
  for (auto& [source, entries] : sourceEntries_) {
    if (!offersTags_) break;
    std::erase_if(entries, [&](const SourceEntry& entry) { return entry.GetTag() == &tag; });
  }
  std::erase(attachmentUsers_, &tag);
  std::erase(uniqueAttachmentUsers_, &tag);
}

void DataManager::ClearSourceEntries(Nox::PString source) {
  sourceEntries_.erase(source);
}

}  // namespace QELLib
