// The rules for whole containers.

#include <unordered_set>

#include "validation/qel/container.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

const Nox::PString kUniqueNames("uniquenames");

bool UniqueNames(const Container& container, const TagContainer&) {
  bool isGood = true;
  std::unordered_set<Nox::PString> seen;
  for (const std::unique_ptr<Container>& child : container.children) {
    if (seen.insert(child->name).second) continue;
    ReportError(*child, kEntryNameTwice, child->name, container.name);
    isGood = false;
  }
  seen.clear();
  for (const std::unique_ptr<Tag>& tag : container.tags) {
    if (seen.insert(tag->name).second) continue;
    ReportError(*tag, kEntryNameTwice, tag->name, container.name);
    isGood = false;
  }
  return isGood;
}

}  // namespace

ContainerRule FindContainerRule(Nox::PString name) {
  return name == kUniqueNames ? &UniqueNames : nullptr;
}

}  // namespace QELLib
