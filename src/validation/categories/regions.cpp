#include "validation/categories/regions.h"

#include "engine/text.h"
#include "tagdata/tag_container.h"
#include "validation/categories/category_expression.h"
#include "validation/categories/numbered_tags.h"
#include "validation/categories/region_table.h"

namespace morvex {
namespace {

const Nox::PString kCategoryRegion("category-region");
const Nox::PString kFirstCategoryRegion("category-region-0");
const Nox::PString kMorvexBuild("morvex-build");
const Nox::PString kOrigin("origin");
const Nox::PString kRegion("region");

// From this build on "TO" alone means Tonga; before, it was what editors filled in.
constexpr float kTongaBuild = 2.5f;

const RegionRow* FindCode(std::string_view text) {
  if (text.size() < 2) return nullptr;
  const uint32_t code = RegionCode(text[0], text[1]);
  for (const RegionRow& row : RegionTable) {
    if (row.code == code) return &row;
  }
  return nullptr;
}

constexpr char ToUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

std::string_view TrimEnd(std::string_view text) {
  while (!text.empty() && Nox::IsBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

std::string NumberedRegions(const TagContainer& config) {
  std::string list;
  ForEachNumberedTag(config, "category-region-", [&](const std::string& text) { AddRegion(text, list); });
  const bool old = config.GetFloat(kMorvexBuild) < kTongaBuild;
  if (old && Nox::EqualsIgnoreCase(list, "to")) list = "00";
  return list;
}

}  // namespace

std::string_view RegionNameFromCode(std::string_view code) {
  const RegionRow* row = FindCode(code);
  return row == nullptr ? std::string_view() : row->name;
}

std::string RegionCodeFromName(std::string_view name) {
  for (const RegionRow& row : RegionTable) {
    if (!Nox::EqualsIgnoreCase(row.name, name)) continue;
    return {static_cast<char>(row.code >> 8), static_cast<char>(row.code)};
  }
  return {};
}

bool IsRegionCode(std::string_view text) {
  return FindCode(text) != nullptr;
}

void AddRegion(std::string_view text, std::string& list) {
  text = TrimEnd(text);
  std::string code(text.substr(0, 2));
  for (char& c : code)
    c = ToUpper(c);
  if (text.size() != 2 || !IsRegionCode(code)) code = RegionCodeFromName(text);
  CategoryMerge(list, code, list);
}

std::string GetRegionList(const TagContainer& config) {
  if (config.HasTag(kCategoryRegion)) return config.GetText(kCategoryRegion);
  if (config.HasTag(kFirstCategoryRegion)) return NumberedRegions(config);
  std::string list;
  if (config.HasTag(kRegion)) {
    const std::string region = config.GetText(kRegion);
    // "<none>" and its like.
    if (!region.starts_with('<')) AddRegion(region, list);
  } else if (config.HasTag(kOrigin)) {
    AddRegion(config.GetText(kOrigin), list);
  }
  return list;
}

}  // namespace morvex
