#include "net/station/asset_list.h"

#include <algorithm>
#include <cmath>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/database.h"
#include "engine/number_text.h"
#include "net/station/gzip_lines.h"
#include "tagdata/code_page.h"
#include "validation/categories/category_class.h"

namespace morvex {
namespace {

// A list of so many lines isn't one of this station; its file may inflate to anything.
constexpr std::size_t kMaxLines = 10'000'000;
constexpr std::uint64_t kMaxBytes = std::uint64_t{2} << 30;

std::string_view NextField(std::string_view& line) {
  const std::string_view field = line.substr(0, line.find(' '));
  line.remove_prefix(std::min(field.size() + 1, line.size()));
  return field;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Lists of old are in the system code page.
std::string AsUtf8(std::string_view name) {
  return IsAscii(name) || Utf8AsAnsi(name) ? std::string(name) : AnsiAsUtf8(name);
}

// Lists name a kind, as configurations do, or a category class.
std::string_view ClassOf(std::string_view kind) {
  const std::string_view known = ClassFromKindAndType(kind, {});
  if (!known.empty()) return known;
  return IsValidCategoryClass(kind) ? kind : std::string_view();
}

void MergeLine(const AssetListLine& line, ZEBAssetCache& cache) {
  ZEBAssetInfo* record = cache.Find(line.kuid);
  const bool isNew = record == nullptr;
  if (isNew) record = cache.Create(line.kuid);
  if (record == nullptr) return;

  AssetTexts texts = isNew ? AssetTexts() : record->Texts();
  AssetNumbers numbers = record->Numbers();
  std::string_view& category = texts[static_cast<size_t>(AssetText::kCategoryClass)];
  std::string_view& username = texts[static_cast<size_t>(AssetText::kUsername)];
  const bool takesName = username.empty() && texts[static_cast<size_t>(AssetText::kLocalName)].empty();
  const std::string name = takesName ? AsUtf8(line.name) : std::string();
  if (takesName) username = name;
  if (isNew) category = ClassOf(line.kind);
  const bool takesBuild = numbers.build == 0 && line.build != 0;
  if (takesBuild) numbers.build = line.build;
  if (isNew || takesBuild || takesName) record->SetTextsAndNumbers(texts, numbers);
  record->Set(AssetState::kOnStation, true);
}

}  // namespace

std::optional<AssetListLine> ParseAssetListLine(std::string_view line) {
  AssetListLine parsed;
  const std::string_view kuid = NextField(line);
  if (kuid.find(':') != kuid.npos) parsed.kuid = KUID(kuid, false);
  if (parsed.kuid.IsNull()) return std::nullopt;
  parsed.kind = NextField(line);
  const float build = Nox::ReadFloat(NextField(line));
  parsed.build = std::isfinite(build) && build > 0 ? build : 0;
  parsed.name = line;
  return parsed;
}

AssetListMerge MergeAssetList(const std::string& path) {
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  AssetListMerge merge;
  GzipLines lines(path);
  std::string_view text;
  while (lines.Next(text)) {
    if (text.empty()) continue;
    if (const auto line = ParseAssetListLine(text)) {
      MergeLine(*line, cache);
      ++merge.merged;
    } else {
      ++merge.refused;
    }
    if (merge.merged + merge.refused >= kMaxLines || lines.BytesRead() > kMaxBytes) {
      merge.fault = "the list is too long";
      break;
    }
  }
  if (merge.fault.empty()) merge.fault = lines.Fault();
  cache.SortView();
  ZEBMarkChanged(kContentChanged);
  return merge;
}

}  // namespace morvex
