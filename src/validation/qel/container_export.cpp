// The walk that writes a tree to a soup and runs its checks.

#include <array>
#include <utility>

#include "engine/text.h"
#include "validation/qel/container.h"
#include "validation/qel/names.h"

namespace QELLib {
namespace {

using ExportOperation = bool (Container::*)(const Tag&, TagContainer&);

struct TypeExport {
  TagType type;
  ExportOperation operation;
};
constexpr std::array<TypeExport, 20> kOperations = {{
    {TagType::kFloat, &Container::ExportFloat},
    {TagType::kString, &Container::ExportString},
    {TagType::kInt, &Container::ExportInt},
    {TagType::kBool, &Container::ExportBool},
    {TagType::kVector2, &Container::ExportVector2},
    {TagType::kVector3, &Container::ExportVector3},
    {TagType::kVector4, &Container::ExportVector4},
    {TagType::kVector5, &Container::ExportVector5},
    {TagType::kFloatList, &Container::ExportFloatList},
    {TagType::kComboBox, &Container::ExportComboBox},
    {TagType::kIntComboBox, &Container::ExportIntComboBox},
    {TagType::kListBox, &Container::ExportListBox},
    {TagType::kDoubleString, &Container::ExportDoubleString},
    {TagType::kKuid, &Container::ExportKuid},
    {TagType::kFilePath, &Container::ExportFilePath},
    {TagType::kFilePathEdit, &Container::ExportFilePathEdit},
    {TagType::kStringKuid, &Container::ExportStringKuid},
    {TagType::kKuidBrowser, &Container::ExportKuidBrowser},
    {TagType::kStringKuidBrowser, &Container::ExportStringKuidBrowser},
    {TagType::kOther, &Container::ExportOther},
}};

// The kind that an asset's file has for a definition chosen by its other tags.
std::string WrittenKind(std::string_view value) {
  std::string kind = Nox::ToLower(value);
  if (kind == "double-track" || kind == "tunnel") return "bridge";
  if (kind == "chunky-track" || kind == "mesh-reducing-track") return "track";
  return kind == "scenery-trackside" ? "scenery" : kind;
}

}  // namespace

bool Container::ExportTag(Tag& tag, TagContainer& out) {
  if (tag.name == kKind) tag.value = WrittenKind(tag.value);
  for (const TypeExport& row : kOperations) {
    if (row.type == tag.type) return (this->*row.operation)(tag, out);
  }
  return true;
}

bool Container::Export(TagContainer& out) {
  if (extensions.IsValid()) {
    out.SetContainer(kExtensions, extensions);
    return true;
  }
  bool isGood = true;
  for (const std::unique_ptr<Tag>& tag : tags)
    isGood &= ExportTag(*tag, out);
  for (const std::unique_ptr<Container>& child : children) {
    TagContainer soup;
    out.GetRoot()->AddChild(child->savingName.Empty() ? child->name : child->savingName, soup.GetRoot());
    isGood &= child->Export(soup);
    for (size_t i = 0; i < child->rules.size(); ++i)
      isGood &= child->rules[i](*child, child->ruleArguments[i]);
  }
  return isGood;
}

}  // namespace QELLib
