#include "validation/qel/definitions.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "engine/path.h"
#include "tagdata/container_tag.h"
#include "validation/qel/names.h"

namespace QELLib {
namespace {

using Names = std::unordered_set<Nox::PString>;

constexpr std::array<std::string_view, 3> kFiles = {"inheritance.txt", "kind.txt", "container.txt"};

struct TypeName {
  std::string_view name;
  TagType type;
};
constexpr std::array<TypeName, 20> kTypeNames = {{
    {"float", TagType::kFloat},
    {"string", TagType::kString},
    {"int", TagType::kInt},
    {"bool", TagType::kBool},
    {"vector2", TagType::kVector2},
    {"vector3", TagType::kVector3},
    {"rgb", TagType::kVector3},
    {"vector4", TagType::kVector4},
    {"vector5", TagType::kVector5},
    {"floatlist", TagType::kFloatList},
    {"combobox", TagType::kComboBox},
    {"intcombobox", TagType::kIntComboBox},
    {"listbox", TagType::kListBox},
    {"doublestring", TagType::kDoubleString},
    {"kuid", TagType::kKuid},
    {"filepath", TagType::kFilePath},
    {"filepathedit", TagType::kFilePathEdit},
    {"stringkuid", TagType::kStringKuid},
    {"kuidbrowser", TagType::kKuidBrowser},
    {"stringkuidbrowser", TagType::kStringKuidBrowser},
}};

EntryDefinition::Form FormOf(std::string_view kind) {
  if (kind == "value") return EntryDefinition::Form::kValue;
  return kind == "element" ? EntryDefinition::Form::kElement : EntryDefinition::Form::kContainer;
}

// So many as the entry has tags, since they aren't numbered further than that.
std::vector<std::string> ContainerTypesOf(const TagContainer& entry) {
  std::vector<std::string> types;
  if (!entry.HasTag(kContainerType0)) return types;
  for (uint32_t i = 0; i < entry.GetCount(); ++i)
    types.push_back(entry.GetText(Nox::PString("container-type" + std::to_string(i))));
  while (types.size() > 1 && types.back().empty())
    types.pop_back();
  return types;
}

void AppendContainerRules(const TagContainer& definition, std::vector<BoundContainerRule>& rules) {
  const TagContainer validation = definition.GetContainer(kValidation);
  for (uint32_t i = 0; i < validation.GetCount(); ++i) {
    const Nox::PString name = validation.GetName(i);
    if (const ContainerRule rule = FindContainerRule(name))
      rules.push_back({rule, validation.GetContainer(name)});
  }
}

}  // namespace

TagType TagTypeOf(std::string_view name) {
  const auto found = std::find_if(kTypeNames.begin(), kTypeNames.end(),
                                  [&](const TypeName& known) { return known.name == name; });
  return found == kTypeNames.end() ? TagType::kOther : found->type;
}

EntryDefinition::EntryDefinition(const TagContainer& entry)
    : soup(entry),
      form(FormOf(entry.GetText(kKind))),
      type(TagTypeOf(entry.GetText(kType))),
      compulsory(entry.GetBool(kCompulsory)),
      disabled(entry.GetBool(kDisabled)),
      unique(entry.GetBool(kUnique)),
      hasDefault(entry.HasTag(kDefault)),
      isSmoke(entry.GetText(kIcon) == kSmoke.View()),
      defaultValue(entry.GetText(kDefault)),
      source(entry.GetString(kSource)),
      datatype(entry.GetString(kDataType)),
      category(entry.GetString(kCategory)),
      elementType(entry.GetString(kElementType)),
      containerTypes(ContainerTypesOf(entry)) {
  const TagContainer validation = entry.GetContainer(kValidation);
  for (uint32_t i = 0; i < validation.GetCount(); ++i) {
    const Nox::PString name = validation.GetName(i);
    if (const TagRule rule = FindTagRule(name)) rules.push_back({rule, validation.GetContainer(name)});
  }
}

void Definitions::Load(std::string_view folder) {
  entries_.clear();
  wholes_.clear();
  const auto merged = Nox::MakeRef<morvex::TDBContainerTag>();
  for (const std::string_view name : kFiles) {
    TagContainer file;
    if (!file.Load({}, Nox::Path::AddPath(folder, name))) continue;
    // A tree of our own, whose nodes stay where they are.
    TagContainer copy;
    copy.CopyFrom(file);
    for (uint32_t i = 0; i < copy.GetCount(); ++i)
      merged->AddChild(copy.GetName(i), std::as_const(*copy.Chunk()).GetChunk(copy.GetName(i)));
  }
  root_ = TagContainer(merged);
}

const EntryDefinition& Definitions::Entry(const TagContainer& entry) {
  std::unique_ptr<EntryDefinition>& read = entries_[entry.Chunk()];
  if (read == nullptr) read = std::make_unique<EntryDefinition>(entry);
  return *read;
}

const ContainerDefinition& Definitions::Whole(const TagContainer& definition) {
  const auto found = wholes_.find(definition.Chunk());
  if (found != wholes_.end()) return *found->second;
  auto whole = std::make_unique<ContainerDefinition>();
  whole->soup = definition;
  whole->subPossibilities = definition.GetContainer(kSubPossibilities);
  whole->tagArray = definition.GetContainer(kTagArray);
  whole->arrayElement = definition.GetContainer(kArrayElement);
  GatherInherited(*whole);
  for (const TagContainer& inherited : whole->inherited)
    GatherPossibilities(*whole, inherited);
  GatherPossibilities(*whole, definition);
  const TagContainer obsolete = definition.GetContainer(kObsoleteTag);
  for (uint32_t i = 0; i < obsolete.GetCount(); ++i)
    whole->obsolete.push_back(obsolete.GetName(i));
  for (uint32_t i = 0; i < whole->subPossibilities.GetCount(); ++i) {
    const Nox::PString name = whole->subPossibilities.GetName(i);
    if (Entry(whole->subPossibilities.GetContainer(name)).compulsory) whole->compulsory.push_back(name);
  }
  AppendContainerRules(definition, whole->rules);
  for (const TagContainer& inherited : whole->inherited)
    AppendContainerRules(inherited, whole->rules);
  return *wholes_.emplace(definition.Chunk(), std::move(whole)).first->second;
}

// A list of our own in place of calls, and each name once: definitions may inherit in chains of any length,
// and in circles.
void Definitions::GatherInherited(ContainerDefinition& whole) const {
  Names seen;
  std::vector<Nox::PString> ahead;
  const auto push = [&](const TagContainer& definition) {
    const TagContainer inherit = definition.GetContainer(kInherit);
    for (uint32_t i = inherit.GetCount(); i > 0; --i)
      ahead.push_back(inherit.GetName(i - 1));
  };
  push(whole.soup);
  while (!ahead.empty()) {
    const Nox::PString name = ahead.back();
    ahead.pop_back();
    TagContainer definition = Find(name);
    if (definition.IsEmpty() || definition.Chunk() == whole.soup.Chunk() || !seen.insert(name).second)
      continue;
    push(definition);
    whole.inheritedNames.push_back(name);
    whole.inherited.push_back(std::move(definition));
  }
}

void Definitions::GatherPossibilities(ContainerDefinition& whole, const TagContainer& definition) {
  Names known;
  for (const ContainerDefinition::Possibility& possibility : whole.possibilities)
    known.insert(possibility.name);
  const TagContainer possibilities = definition.GetContainer(kSubPossibilities);
  for (uint32_t i = 0; i < possibilities.GetCount(); ++i) {
    const Nox::PString name = possibilities.GetName(i);
    const TagContainer entry = possibilities.GetContainer(name);
    if (entry.IsValid() && known.insert(name).second) whole.possibilities.push_back({name, &Entry(entry)});
  }
}

}  // namespace QELLib
