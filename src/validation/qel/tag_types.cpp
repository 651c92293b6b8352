// What the type of a tag brings with it.

#include <algorithm>

#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/names.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

constexpr float kBuildWithoutComments = 2.5f;

const EntryDefinition& KnownEntry(const TagContainer& entry) {
  return DataManager::Get()->GetDefinitionCache().Entry(entry);
}

bool IsComment(Nox::PString name) {
  return name == "!" || name == "rem" || name == ";";
}

bool IsSourceOfAsset(Nox::PString source) {
  return source == kMeshTable || source == kAttachedTrack || source == kQueues;
}

void RefuseListValue(Tag& tag) {
  ReportWarning(tag, kEntryValueNotInList, tag.value, tag.name);
  tag.value.clear();
}

bool IsInTable(std::string_view value, Nox::PString source) {
  const LineTable& table = DataManager::Get()->GetLineTable(source);
  return std::any_of(table.begin(), table.end(), [&](const LineEntry& line) { return line.name == value; });
}

}  // namespace

bool Container::IsComboBoxValue(std::string_view value, const TagContainer& entry) const {
  return IsInTable(value, KnownEntry(entry).source);
}

bool Container::IsIntComboBoxValue(std::string_view value, const TagContainer& entry) const {
  return IsInTable(value, KnownEntry(entry).source);
}

bool Container::IsListBoxValue(std::string_view value, const TagContainer& entry) const {
  while (true) {
    const size_t end = value.find(';');
    if (IsInTable(value.substr(0, end), KnownEntry(entry).source)) return true;
    if (end == value.npos) return false;
    value.remove_prefix(end + 1);
  }
}

void Container::SetTagType(Tag& tag, const TagContainer& entry, Container& container) {
  const EntryDefinition& known = KnownEntry(entry);
  tag.definition = entry;
  tag.type = known.type;
  switch (known.type) {
    case TagType::kString:
      if (tag.value.empty()) tag.value = DataManager::Get()->Details().DefaultFor(tag.name).View();
      tag.disabled = known.disabled;
      break;
    case TagType::kInt:
    case TagType::kFloat:
      tag.disabled = known.disabled;
      break;
    case TagType::kListBox:
    case TagType::kIntComboBox:
      SetListType(tag, entry);
      break;
    case TagType::kComboBox:
      SetComboBoxType(tag, entry);
      break;
    case TagType::kKuid:
      if (tag.value.empty()) tag.value = morvex::KUID().TagText();
      break;
    case TagType::kFilePath:
    case TagType::kFilePathEdit:
      SetFileType(tag, entry, container);
      break;
    case TagType::kKuidBrowser:
      tag.category = known.category;
      break;
    case TagType::kOther:
      SetUnknownType(tag);
      break;
    default:
      break;
  }
}

void Container::SetListType(Tag& tag, const TagContainer& entry) {
  if (tag.value.empty()) return;
  const bool isKnown =
      tag.type == TagType::kListBox ? IsListBoxValue(tag.value, entry) : IsIntComboBoxValue(tag.value, entry);
  if (!isKnown) RefuseListValue(tag);
}

void Container::SetComboBoxType(Tag& tag, const TagContainer& entry) {
  const EntryDefinition& known = KnownEntry(entry);
  DataManager& manager = *DataManager::Get();
  if (known.source == kAttachment) {
    if (known.unique) {
      manager.AddUniqueAttachmentUser(tag);
    } else {
      manager.AddAttachmentUser(tag);
    }
  } else if (IsSourceOfAsset(known.source)) {
    manager.AddSourceUser(known.source, tag);
  } else {
    if (!tag.value.empty() && !IsComboBoxValue(tag.value, entry)) RefuseListValue(tag);
    return;
  }
  tag.source = known.source;
  tag.hasSource = true;
}

void Container::SetFileType(Tag& tag, const TagContainer& entry, Container& container) {
  tag.datatype = KnownEntry(entry).datatype;
  tag.isFile = true;
  if (tag.name == kScript || tag.value.empty()) return;
  morvex::MeshData* const loaded = DataManager::Get()->LoadMesh(tag.value, container);
  if (loaded != nullptr) tag.parent->mesh = loaded;
}

void Container::SetUnknownType(Tag& tag) {
  if (IsComment(tag.name) && DataManager::Get()->build < kBuildWithoutComments) return;
  const std::string_view text = tag.name;
  const bool isLeftOver = text.starts_with("category-region-") || text.starts_with("category-era-");
  if (isLeftOver || IsObsolete(tag.name)) {
    ReportWarning(tag, kEntryObsoleteTag, tag.name, tag.parent->name);
  } else {
    ReportError(tag, kEntryUnknownTag, tag.name, tag.parent->name);
  }
}

}  // namespace QELLib
