#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/pstring.h"
#include "tagdata/tag_container.h"
#include "validation/qel/rules.h"
#include "validation/qel/tag_type.h"

namespace QELLib {

using morvex::TagContainer;

// An entry of a definition: what one tag or child may be. Read once from its soup.
struct EntryDefinition {
  enum class Form { kValue, kElement, kContainer };

  explicit EntryDefinition(const TagContainer& entry);

  TagContainer soup;
  Form form = Form::kContainer;
  TagType type = TagType::kOther;
  bool compulsory = false;
  bool disabled = false;
  bool unique = false;
  bool hasDefault = false;
  bool isSmoke = false;
  std::string defaultValue;
  Nox::PString source;
  Nox::PString datatype;
  Nox::PString category;
  Nox::PString elementType;
  std::vector<std::string> containerTypes;  // container-type0 and on, the first empty if there is none
  std::vector<BoundTagRule> rules;
};

// A named definition: what a container may hold, together with all that it inherits. Read once.
struct ContainerDefinition {
  // The entry of a child, inherited or not.
  struct Possibility {
    Nox::PString name;
    const EntryDefinition* entry;
  };

  TagContainer soup;
  TagContainer subPossibilities;
  TagContainer tagArray;
  TagContainer arrayElement;
  // What it inherits, however indirectly: depth first, each once, the nearer in front.
  std::vector<Nox::PString> inheritedNames;
  std::vector<TagContainer> inherited;
  std::vector<Possibility> possibilities;  // of what it inherits, then its own; each name once
  std::vector<Nox::PString> compulsory;    // its own
  std::vector<Nox::PString> obsolete;      // its own
  std::vector<BoundContainerRule> rules;   // its own, then those of what it inherits
};

// The definitions of the data folder as one soup, and what was read of them so far. Shared by all validations
// of the process; for one thread at a time. What it hands out lives until the next Load.
class Definitions {
 public:
  // Reads the three files of the folder. A missing file holds no definitions; of two with one name the first
  // counts.
  void Load(std::string_view folder);

  const TagContainer& Root() const { return root_; }
  // Empty if there is none of that name.
  TagContainer Find(Nox::PString name) const { return root_.GetContainer(name); }

  const EntryDefinition& Entry(const TagContainer& entry);
  const ContainerDefinition& Whole(const TagContainer& definition);

 private:
  void GatherInherited(ContainerDefinition& whole) const;
  void GatherPossibilities(ContainerDefinition& whole, const TagContainer& definition);

  TagContainer root_;
  // By the soup, which the value keeps alive.
  std::unordered_map<const morvex::ACSChunk*, std::unique_ptr<EntryDefinition>> entries_;
  std::unordered_map<const morvex::ACSChunk*, std::unique_ptr<ContainerDefinition>> wholes_;
};

}  // namespace QELLib
