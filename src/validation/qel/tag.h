#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/pstring.h"
#include "tagdata/tag_container.h"
#include "validation/qel/rules.h"
#include "validation/qel/tag_type.h"

namespace QELLib {

// A leaf of the tree that a configuration becomes: its value and what its definition says of it. Owned by its
// container. Its records and its places in the DataManager's lists go with it.
class Tag {
 public:
  Tag(int32_t tagIndex, Container& container, Nox::PString tagName)
      : name(tagName), index(tagIndex), parent(&container) {}
  Tag(const Tag&) = delete;
  Tag& operator=(const Tag&) = delete;
  virtual ~Tag();

  // Takes over the rules that an entry definition names; unknown names are passed over.
  virtual void SetupRules(const morvex::TagContainer& entry);

  Nox::PString name;
  std::string value;  // always the text form; not interned, since configurations hold anything
  TagType type = TagType::kOther;
  int32_t index = -1;
  Container* parent = nullptr;
  Nox::PString datatype;
  bool hasSource = false;  // the value stands in a source of the asset
  Nox::PString source;
  bool required = true;
  std::vector<TagRule> rules;
  std::vector<morvex::TagContainer> ruleArguments;  // one for each rule
  bool disabled = false;
  bool isFile = false;
  morvex::TagContainer definition;  // the entry
  Nox::PString category;
};

}  // namespace QELLib
