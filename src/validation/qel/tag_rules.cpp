// The rules that the definitions name.

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "engine/number_text.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/names.h"
#include "validation/qel/number_list.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

const Nox::PString kSnapMode("snapmode");
const Nox::PString kTrackside("trackside");
const Nox::PString kCollateMeshes("collate-meshes");
const Nox::PString kInitialCount("initial-count");
const Nox::PString kMin("min");
const Nox::PString kMax("max");
const Nox::PString kFirst("0");
const Nox::PString kSecond("1");

const Tag* Sibling(const Tag& tag, Nox::PString name) {
  return tag.parent->tags.Find(name);
}

// The container that the tag's effect stands in, two levels above the tag's own. May be null.
const Container* Holder(const Tag& tag) {
  const Container* const above = tag.parent->parent;
  return above == nullptr ? nullptr : above->parent;
}

bool SnapModeZero(const Tag& tag, const TagContainer&) {
  const Tag* const mode = Sibling(tag, kSnapMode);
  if (mode == nullptr) {
    ReportError(tag, kEntrySnapModeMissing, tag.name);
    return false;
  }
  if (mode->value == "0") return true;
  ReportError(tag, kEntrySnapModeNotZero, tag.name);
  return false;
}

bool IsTracksideType(const Tag& tag, const TagContainer&) {
  const Tag* const type = Sibling(tag, kType);
  if (type == nullptr) {
    ReportError(tag, kEntryTypeMissing, tag.name, kType, kTrackside);
    return false;
  }
  if (type->value == kTrackside.View()) return true;
  ReportError(*type, kEntryTypeNotTrackside, kType, kTrackside, tag.name);
  return false;
}

bool NeedCollateMeshes(const Tag& tag, const TagContainer&) {
  if (Sibling(tag, kCollateMeshes) != nullptr) return true;
  ReportError(tag, kEntryNeedsTag, tag.name, kCollateMeshes);
  return false;
}

// A value that isn't there fails without a word: whoever demands it says so.
template <typename Test, typename... Args>
bool AllNumbers(const Tag& tag, Test test, MessageEntry complaint, const Args&... args) {
  if (tag.value.empty()) return false;
  const std::vector<float> numbers = ParseNumbers(tag.value);
  if (std::all_of(numbers.begin(), numbers.end(), test)) return true;
  ReportError(tag, complaint, tag.name, args...);
  return false;
}

bool IsPositive(const Tag& tag, const TagContainer&) {
  return AllNumbers(
      tag, [](float number) { return number >= 0; }, kEntryNotPositive);
}

bool IsNotZero(const Tag& tag, const TagContainer&) {
  return AllNumbers(
      tag, [](float number) { return number != 0; }, kEntryZero);
}

bool Range(const Tag& tag, const TagContainer& parameters) {
  const std::string least = parameters.GetText(kMin);
  const std::string most = parameters.GetText(kMax);
  const float min = Nox::ReadFloat(least);
  const float max = Nox::ReadFloat(most);
  return AllNumbers(
      tag, [=](float number) { return number >= min && number <= max; }, kEntryOutOfRange, least, most);
}

bool NotOwnParent(const Tag& tag, const TagContainer&) {
  if (tag.name != tag.parent->name) return true;
  ReportError(tag, kEntryOwnParent);
  return false;
}

bool MustBeOwnParent(const Tag& tag, const TagContainer&) {
  const DataManager::LoadedMesh* const loaded = DataManager::Get()->FindMesh(Holder(tag));
  if (loaded == nullptr) return false;
  if (loaded->mesh->HasAttachment(tag.value)) return true;
  ReportError(tag, kEntryNotOwnParent);
  return false;
}

bool MustBeInLightContainer(const Tag& tag, const TagContainer&) {
  const Container* const holder = Holder(tag);
  const Container* const lights = holder == nullptr ? nullptr : holder->FindChild(kLights);
  if (lights == nullptr) {
    ReportError(tag, kEntryNoLights);
    return false;
  }
  for (const std::string_view piece : SplitNumbers(tag.value)) {
    const std::string number = std::to_string(Nox::ReadInt(piece));
    if (lights->FindChild(number) != nullptr) continue;
    ReportError(tag, kEntryNoSuchLight, number);
    return false;
  }
  return true;
}

bool MustBePaired(const Tag& tag, const TagContainer& parameters) {
  if (tag.name == kInitialCount && tag.value == "0") return true;
  const Nox::PString first = parameters.GetString(kFirst);
  const Nox::PString second = parameters.GetString(kSecond);
  const bool hasFirst = Sibling(tag, first) != nullptr;
  const bool hasSecond = Sibling(tag, second) != nullptr;
  if (!hasFirst) ReportError(tag, kEntryNotPaired, second, first);
  if (!hasSecond) ReportError(tag, kEntryNotPaired, first, second);
  return hasFirst && hasSecond;
}

struct NamedRule {
  Nox::PString name;
  TagRule rule;
};
const std::array<NamedRule, 10> kRules = {{
    {Nox::PString("snapmodezero"), &SnapModeZero},
    {Nox::PString("istracksidetype"), &IsTracksideType},
    {Nox::PString("needcollatemeshes"), &NeedCollateMeshes},
    {Nox::PString("ispositive"), &IsPositive},
    {Nox::PString("isnotzero"), &IsNotZero},
    {Nox::PString("range"), &Range},
    {Nox::PString("notownparent"), &NotOwnParent},
    {Nox::PString("mustbeownparent"), &MustBeOwnParent},
    {Nox::PString("mustbeinlightcontainer"), &MustBeInLightContainer},
    {Nox::PString("mustbepaired"), &MustBePaired},
}};

}  // namespace

TagRule FindTagRule(Nox::PString name) {
  const auto found =
      std::find_if(kRules.begin(), kRules.end(), [&](const NamedRule& row) { return row.name == name; });
  return found == kRules.end() ? nullptr : found->rule;
}

}  // namespace QELLib
