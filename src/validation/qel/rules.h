#pragma once

#include "engine/pstring.h"
#include "tagdata/tag_container.h"

namespace QELLib {

class Container;
class Tag;

// A rule judges a finished tag, or the children of a finished container, by its parameters, and reports what
// it finds. A false answer fails the check even where nothing is reported.
using TagRule = bool (*)(const Tag& tag, const morvex::TagContainer& parameters);
using ContainerRule = bool (*)(const Container& container, const morvex::TagContainer& parameters);

struct BoundTagRule {
  TagRule rule;
  morvex::TagContainer parameters;
};
struct BoundContainerRule {
  ContainerRule rule;
  morvex::TagContainer parameters;
};

// The rule of a name, null if there is none.
TagRule FindTagRule(Nox::PString name);
ContainerRule FindContainerRule(Nox::PString name);

}  // namespace QELLib
