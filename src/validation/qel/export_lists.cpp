// Export of values that stand in a list or in another tag of the asset.

#include "engine/number_text.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/export_check.h"
#include "validation/qel/names.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

const Nox::PString kMeshElement("mesh-element");
const Nox::PString kEffectCorona("effect-corona");
const Nox::PString kEffectAttachment("effect-attachment");

// True if the mesh of a container is loaded, which then doesn't have the attachment.
bool RefusedByMesh(const Tag& tag, const Container* owner) {
  const DataManager::LoadedMesh* const loaded = DataManager::Get()->FindMesh(owner);
  if (loaded == nullptr) return false;
  ReportError(tag, kEntryNotAnAttachment, tag.name, tag.parent->name, loaded->fileName);
  return true;
}

// An attachment of the mesh that the element is hung on, which its "att-parent" names.
bool RefusedByParentMesh(const Tag& tag) {
  const Container& element = *tag.parent;
  const Tag* const attParent = element.tags.Find(kAttParent);
  if (attParent == nullptr) {
    ReportError(tag, kEntryNoAttachmentParent, element.name);
    return true;
  }
  const Container* const table = element.parent;
  return table != nullptr && RefusedByMesh(tag, table->FindChild(attParent->value));
}

bool RefusedAnywhere(const Tag& tag) {
  if (!DataManager::Get()->AttachmentsAreKnown()) return false;
  ReportError(tag, kEntryNotAnAttachment, tag.name, tag.parent->name, "...");
  return true;
}

}  // namespace

bool Container::CheckSourceValue(const Tag& tag) const {
  const DataManager& manager = *DataManager::Get();
  if (!tag.hasSource || manager.IsValueInSource(tag.value, tag.source)) return true;
  if (tag.source == kAttachment) {
    const Nox::PString kind = tag.parent->kindName;
    if (kind == kMeshElement) return !RefusedByParentMesh(tag);
    if (kind == kEffectCorona || kind == kEffectAttachment) {
      const Container* const effects = tag.parent->parent;
      return effects == nullptr || !RefusedByMesh(tag, effects->parent);
    }
  }
  return !RefusedAnywhere(tag);
}

bool Container::ExportComboBox(const Tag& tag, TagContainer& out) {
  const bool holds = PassesRules(tag);
  if (tag.value.empty()) ReportError(tag, kEntryEmptyComboBox, tag.name, name);
  out.SetString(tag.name, tag.value);
  const bool isInSource = CheckSourceValue(tag);
  return holds && isInSource;
}

bool Container::ExportListBox(const Tag& tag, TagContainer& out) {
  const bool holds = PassesRules(tag);
  if (tag.value.empty()) ReportError(tag, kEntryEmptyListBox, tag.name, name);
  out.SetString(tag.name, tag.value);
  const bool isInSource = CheckSourceValue(tag);
  return holds && isInSource;
}

bool Container::ExportIntComboBox(const Tag& tag, TagContainer& out) {
  const bool holds = PassesRules(tag);
  if (tag.value.empty()) ReportError(tag, kEntryEmptyComboBox, tag.name, name);
  out.SetInt(tag.name, Nox::ReadInt(tag.value));
  return holds;
}

}  // namespace QELLib
