#include "validation/categories/category_class.h"

#include <algorithm>

#include "engine/text.h"
#include "tagdata/tag_container.h"
#include "validation/categories/category_expression.h"
#include "validation/categories/category_tables.h"

namespace morvex {
namespace {

const Nox::PString kCategoryClass("category-class");
const Nox::PString kEngine("engine");
const Nox::PString kIsRoad("isroad");
const Nox::PString kIsTrack("istrack");
const Nox::PString kKind("kind");
const Nox::PString kTender("tender");
const Nox::PString kTrackside("trackside");
const Nox::PString kType("type");

constexpr size_t kMaxTokenLength = 4;

bool HasCode(std::string_view codes, std::string_view code) {
  while (!codes.empty()) {
    const std::string_view next = codes.substr(0, codes.find(' '));
    if (Nox::EqualsIgnoreCase(next, code)) return true;
    codes.remove_prefix(std::min(next.size() + 1, codes.size()));
  }
  return false;
}

// What a configuration says about its class.
struct ClassHints {
  std::string kind;
  std::string type;  // a category string
  bool trackside;
  bool track;
};

void AddTypeByPlace(const TagContainer& config, ClassHints& hints) {
  if (hints.track) {
    hints.type += ";track";
  } else if (config.GetBool(kIsRoad)) {
    hints.type += ";road";
  } else if (hints.trackside) {
    hints.type += ";trackside";
  } else if (config.HasTag(kIsTrack)) {
    hints.type += ";road";  // said to be no track
  }
}

void AddTypeOfVehicle(const TagContainer& config, ClassHints& hints) {
  if (config.GetBool(kTender)) {
    hints.type += ";tender";
  } else if (config.GetInt(kEngine, -1) == 1) {
    hints.type += ";locomotive";
  } else {
    hints.type += ";rollingstock";
  }
}

ClassHints ReadHints(const TagContainer& config) {
  ClassHints hints{Nox::ToLower(config.GetText(kKind)), Nox::ToLower(config.GetText(kType)), false, false};
  if (hints.type == "trackside") hints.type.clear();
  hints.trackside = config.HasTag(kTrackside) || hints.kind == "mojunction" || hints.kind == "speedboard" ||
                    hints.kind == "signal";
  hints.track = config.GetBool(kIsTrack);
  AddTypeByPlace(config, hints);
  if (hints.kind == "traincar") AddTypeOfVehicle(config, hints);
  return hints;
}

// Authors chose letter codes freely: one that contradicts the rest of the configuration is worth nothing.
bool Agrees(std::string_view candidate, const ClassHints& hints) {
  const std::string_view kind = KindFromClass(candidate);
  return (kind.empty() || kind == hints.kind) && MatchExpression(candidate, "TO") == hints.trackside &&
         MatchExpression(candidate, "TK") == hints.track;
}

}  // namespace

std::string_view ClassFromLegacyCode(std::string_view kind, std::string_view code) {
  if (code.empty()) return {};
  for (const LegacyClassRow& row : LegacyClassTable) {
    const bool kindFits = kind.empty() || row.kind.empty() || Nox::EqualsIgnoreCase(kind, row.kind);
    if (kindFits && HasCode(row.codes, code)) return row.categoryClass;
  }
  return {};
}

std::string_view ClassFromKindAndType(std::string_view kind, std::string_view type) {
  const std::string lowered = Nox::ToLower(type);
  for (const KindClassRow& row : KindClassTable) {
    if (Nox::EqualsIgnoreCase(row.kind, kind) && MatchExpression(lowered, row.type)) return row.categoryClass;
  }
  return {};
}

std::string_view KindFromClass(std::string_view categoryClass) {
  for (const KindClassRow& row : KindClassTable) {
    if (MatchExpression(categoryClass, row.categoryClass)) return row.kind;
  }
  return {};
}

std::string GetCategoryClass(const TagContainer& config) {
  const ClassHints hints = ReadHints(config);
  const std::string_view candidate = ClassFromLegacyCode(hints.kind, config.GetText(kCategoryClass));
  const std::string_view byKind = ClassFromKindAndType(hints.kind, hints.type);
  std::string result(byKind);
  if (!candidate.empty() && Agrees(candidate, hints)) CategoryMerge(candidate, byKind, result);
  return result;
}

bool IsValidCategoryClass(std::string_view text) {
  while (!text.empty()) {
    const std::string_view token = text.substr(0, text.find_first_of(";|"));
    const bool known = std::find(CategoryTokens.begin(), CategoryTokens.end(), token) != CategoryTokens.end();
    if (token.size() > kMaxTokenLength || (!token.empty() && !known)) return false;
    text.remove_prefix(std::min(token.size() + 1, text.size()));
  }
  return true;
}

}  // namespace morvex
