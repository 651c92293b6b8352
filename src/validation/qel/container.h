#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "engine/pstring.h"
#include "tagdata/tag_container.h"
#include "validation/qel/rules.h"
#include "validation/qel/tag.h"
#include "validation/qel/tag_list.h"

namespace morvex {
class MeshData;
}

namespace QELLib {

using morvex::TagContainer;

// A node of the tree that a configuration becomes when it is read side by side with a definition: what each
// tag is meant to be, and what it holds. The root is made empty and filled by Load; Export runs the checks.
// Owns its tags and children. A tree lives for one validation, and there is one at a time: findings go to the
// ErrorHandler, shared tables come from the DataManager, and both must exist.
//
// Nothing throws. A false answer of Load or Fill means that the tree isn't whole; the reason was reported.
class Container {
 public:
  Container() = default;
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;
  virtual ~Container();

  // Builds the tree. Changes the configuration: old spellings become the present ones.
  virtual bool Load(TagContainer& config);
  // Makes the tags that a definition allows; when nothing is loaded, also those that it demands.
  virtual void Build(const TagContainer& definition, bool loading);
  // Writes the tree to a soup and runs the checks on the way. False if one of them failed.
  virtual bool Export(TagContainer& out);
  virtual void AddTag(std::unique_ptr<Tag> tag);
  virtual TagContainer GetKindDefinition(Nox::PString kind) const;
  // Walks the children of a configuration.
  virtual bool Fill(const TagContainer& definition, const TagContainer& config);

  // One for each type of tag: its rules, its own checks, and its value written to `out`.
  virtual bool ExportFloat(const Tag& tag, TagContainer& out);
  virtual bool ExportString(const Tag& tag, TagContainer& out);
  virtual bool ExportInt(const Tag& tag, TagContainer& out);
  virtual bool ExportBool(const Tag& tag, TagContainer& out);
  virtual bool ExportVector2(const Tag& tag, TagContainer& out);
  virtual bool ExportVector3(const Tag& tag, TagContainer& out);
  virtual bool ExportVector4(const Tag& tag, TagContainer& out);
  virtual bool ExportVector5(const Tag& tag, TagContainer& out);
  virtual bool ExportFloatList(const Tag& tag, TagContainer& out);
  virtual bool ExportComboBox(const Tag& tag, TagContainer& out);
  virtual bool ExportIntComboBox(const Tag& tag, TagContainer& out);
  virtual bool ExportListBox(const Tag& tag, TagContainer& out);
  virtual bool ExportKuid(const Tag& tag, TagContainer& out);
  virtual bool ExportStringKuid(const Tag& tag, TagContainer& out);
  virtual bool ExportDoubleString(const Tag& tag, TagContainer& out);
  virtual bool ExportFilePath(const Tag& tag, TagContainer& out);
  virtual bool ExportFilePathEdit(const Tag& tag, TagContainer& out);
  virtual bool ExportKuidBrowser(const Tag& tag, TagContainer& out);
  virtual bool ExportStringKuidBrowser(const Tag& tag, TagContainer& out);
  virtual bool ExportOther(const Tag& tag, TagContainer& out);

  // Whether a value stands in the line table that an entry names as its source.
  virtual bool IsComboBoxValue(std::string_view value, const TagContainer& entry) const;
  virtual bool IsIntComboBoxValue(std::string_view value, const TagContainer& entry) const;
  // One of its items, separated by ';', is enough.
  virtual bool IsListBoxValue(std::string_view value, const TagContainer& entry) const;

  virtual void RemoveOptionalTag(Nox::PString tagName, Container& container);
  // Gives a tag its type and what goes with it; checks values of lists, loads the files of file tags.
  virtual void SetTagType(Tag& tag, const TagContainer& entry, Container& container);
  // The entry of a child soup, from the definition or what it inherits. False if none of them knows the name,
  // which is reported unless it is an obsolete one.
  virtual bool FindChildDefinition(Nox::PString child, const TagContainer& definition, TagContainer& entry);
  // The container type of an entry whose name contains the child's kind, else the first.
  virtual Nox::PString SelectContainerType(const TagContainer& entry, std::string_view kind) const;
  virtual std::vector<Nox::PString> CollectCompulsory(const TagContainer& definition) const;
  virtual void CollectObsolete(const TagContainer& definition);
  virtual void SetupRules(const TagContainer& definition);
  // The entry of a child in this definition alone; empty if it has none.
  virtual TagContainer FindDefinition(const TagContainer& definition, Nox::PString child) const;
  virtual std::unique_ptr<Tag> NewTag(int32_t tagIndex, Container& container, Nox::PString tagName);
  // A tag with its value: the configuration's, where there is one, else the entry's default. Null if the
  // container has a tag of that name.
  virtual std::unique_ptr<Tag> CreateTag(Container& container, Nox::PString tagName,
                                         const TagContainer& entry, const std::string* configValue);
  // Null, and reported, if there is no definition of that kind.
  virtual std::unique_ptr<Container> CreateChild(Nox::PString childName, Container& childParent,
                                                 Nox::PString kind, int32_t childIndex);
  // From now on the container is written out as this soup and nothing else.
  virtual void SetExtensions(const TagContainer& soup);

  // The definitions of elements that this container leads to, directly or through others.
  std::vector<TagContainer> ContainerTypes() const;
  // The child of that name, null if there is none.
  const Container* FindChild(std::string_view child) const;

  int32_t index = -1;
  Nox::PString name;
  Nox::PString kindName;  // the definition's name
  Nox::PString savingName;
  std::vector<std::unique_ptr<Container>> children;
  TagList tags;
  TagList optionalTags;  // that the definition allows and the configuration didn't name
  std::vector<Nox::PString> obsoleteTags;
  Container* parent = nullptr;  // null at the root
  TagContainer definition;
  TagContainer allDefinitions;
  bool isRoot = false;
  std::vector<ContainerRule> rules;
  std::vector<TagContainer> ruleArguments;  // one for each rule
  std::vector<Nox::PString> inherited;
  morvex::MeshData* mesh = nullptr;  // owned by the DataManager
  TagContainer extensions;

 private:
  bool FillChild(const TagContainer& ofDefinition, Nox::PString child, const TagContainer& config);
  bool FillContainer(const TagContainer& entry, Nox::PString child, const TagContainer& config);
  bool FillElement(const TagContainer& entry, Nox::PString child, const TagContainer& config);
  bool FillSmoke(Nox::PString child, const TagContainer& config);
  bool FillMade(std::unique_ptr<Container> made, const TagContainer& possibilities,
                const TagContainer& config);
  void FillTag(const TagContainer& ofDefinition, Nox::PString tagName, const std::string& value);
  void AddMissingTags(const TagContainer& ofDefinition, const std::vector<Nox::PString>& missing);
  void ReportUnknownChild(Nox::PString child);
  TagContainer FindTagEntry(const TagContainer& ofDefinition, Nox::PString tagName) const;
  bool IsObsolete(Nox::PString tagName) const;

  void SetListType(Tag& tag, const TagContainer& entry);
  void SetComboBoxType(Tag& tag, const TagContainer& entry);
  void SetFileType(Tag& tag, const TagContainer& entry, Container& container);
  void SetUnknownType(Tag& tag);

  bool ExportTag(Tag& tag, TagContainer& out);
  bool ExportNumbers(const Tag& tag, TagContainer& out);
  bool CheckSourceValue(const Tag& tag) const;

  int depth_ = 0;  // of this node below the root
};

}  // namespace QELLib
