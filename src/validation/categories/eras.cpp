#include "validation/categories/eras.h"

#include "engine/text.h"
#include "tagdata/tag_container.h"
#include "validation/categories/numbered_tags.h"

namespace morvex {
namespace {

const Nox::PString kCategoryEra("category-era");

constexpr int kFirstDecade = 1900;
constexpr int kLastDecade = 1990;

bool IsYear(std::string_view text) {
  return (text.size() == 2 || text.size() == 4) && text.find_first_not_of("0123456789") == text.npos;
}

}  // namespace

void AddEra(std::string_view text, std::string& list) {
  text = Nox::Trim(text);
  if (text.ends_with('s') || text.ends_with('S')) text.remove_suffix(1);
  if (!IsYear(text)) return;
  if (!list.empty()) list += ';';
  list += text;
}

std::string GetEraList(const TagContainer& config) {
  if (config.HasTag(kCategoryEra)) return config.GetText(kCategoryEra);
  std::string list;
  ForEachNumberedTag(config, "category-era-", [&](const std::string& text) { AddEra(text, list); });
  return list;
}

std::string EraFromYear(int year) {
  const int decade = year / 10 * 10;
  if (decade <= kFirstDecade) return std::to_string(kFirstDecade);
  return decade <= kLastDecade ? std::to_string(decade) : "2000";
}

}  // namespace morvex
