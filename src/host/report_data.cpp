#include "host/report_data.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/asset_query.h"
#include "database/catalogue/author_names.h"
#include "database/catalogue/pack_table.h"
#include "engine/parallel.h"
#include "host/asset_check.h"
#include "host/console.h"
#include "host/html_text.h"
#include "host/interrupt.h"
#include "host/thumbnail.h"
#include "validation/categories/category_tables.h"

namespace morvex::host {

namespace {

using Kind = ReportProblem::Kind;

// So many faulty assets are checked again for the words, unless the user wants all: it must not take for ever.
constexpr size_t kMaxChecks = 500;

// The more pictures, the smaller: the page should stay within some tens of megabytes.
struct PictureSize {
  size_t assets;
  uint32_t width;
  uint32_t height;
};
constexpr PictureSize kPictureSizes[] = {{2000, 200, 150}, {8000, 112, 84}, {SIZE_MAX, 64, 48}};

std::string NameAndKuid(std::string_view name, const KUID& kuid) {
  return name.empty() ? kuid.TagText() : std::string(name) + " " + kuid.TagText();
}

std::string NameOf(const KUID& kuid) {
  const ZEBAssetInfo* const record = ZEBAssetCache::Instance().Find(kuid);
  return record == nullptr ? std::string() : std::string(record->DisplayName());
}

// Puts the report together asset by asset. Under a write hold.
class Gathering {
 public:
  explicit Gathering(const ReportScope& scope) : scope_(scope) {}

  void Add(AssetEntry&& entry) {
    const ZEBAssetInfo& record = *ZEBAssetCache::Instance().Find(entry.kuid);
    ReportAsset asset;
    asset.className = CategoryLabel(CategoryNameTable, entry.status.category);
    if (asset.className.empty()) asset.className = "Other";
    asset.authorName = ZEBAuthorName(entry.status.author).Text();
    asset.folder = ConfigLocation(record);
    asset.entry = std::move(entry);
    AddFindings(asset);
    AddMissing(asset);
    AddState(asset);
    data_.assets.push_back(std::move(asset));
  }

  ReportData Finish() {
    std::stable_sort(
        data_.missing.begin(), data_.missing.end(),
        [](const MissingAsset& a, const MissingAsset& b) { return a.neededBy.size() > b.neededBy.size(); });
    return std::move(data_);
  }

 private:
  void AddFindings(ReportAsset& asset) {
    const bool isFaulty = asset.entry.status.hasErrors;
    const bool isChecked =
        scope_.validateAll ? asset.entry.status.installed : isFaulty && checks_ < kMaxChecks;
    if (!isChecked) {
      if (isFaulty) asset.problems.push_back({Kind::kError, "The last commit found errors."});
      return;
    }
    ++checks_;
    const std::optional<AssetCheck> check = CheckInstalled(asset.entry.kuid);
    if (!check) return;
    for (const QELLib::Finding& finding : check->findings) {
      if (finding.dropped) continue;
      const bool isError = finding.severity == QELLib::RecordSeverity::kError;
      asset.problems.push_back({isError ? Kind::kError : Kind::kWarning, finding.text});
    }
    if (isFaulty && check->isClean)
      asset.problems.push_back({Kind::kError, "The last commit found errors; a check now finds none."});
  }

  void AddMissing(ReportAsset& asset) {
    if (!asset.entry.status.installed) return;
    ZEBAssetCache& cache = ZEBAssetCache::Instance();
    std::unordered_set<KUID> seen;
    for (const KUID& named : cache.dependencies.DependenciesOf(asset.entry.kuid)) {
      const KUID needed = ZEBFindReplacement(named);
      const ZEBAssetInfo* const record = cache.Find(needed);
      const bool isThere = record != nullptr && record->IsInstalled();
      if (isThere || !seen.insert(needed).second) continue;
      const std::string name = NameOf(needed);
      asset.problems.push_back(
          {Kind::kMissing, "Needs " + NameAndKuid(name, needed) + ", which isn't installed."});
      const auto [place, isNew] = missing_.try_emplace(needed, data_.missing.size());
      if (isNew) data_.missing.push_back({needed, name, {}});
      data_.missing[place->second].neededBy.push_back(data_.assets.size());
    }
    const bool isExplained = !seen.empty();
    if (asset.entry.status.missingDeps && !isExplained)
      asset.problems.push_back({Kind::kMissing, "Something that it needs lacks something itself."});
  }

  void AddState(ReportAsset& asset) {
    const KUID replacement = ZEBFindReplacement(asset.entry.kuid);
    if (replacement != asset.entry.kuid) {
      asset.problems.push_back(
          {Kind::kObsolete,
           "Obsolete: " + NameAndKuid(NameOf(replacement), replacement) + " stands in for it."});
    }
    if (asset.entry.status.open)
      asset.problems.push_back({Kind::kOpen, "Open for edit in " + asset.entry.editPath + "."});
  }

  const ReportScope scope_;
  ReportData data_;
  std::unordered_map<KUID, size_t> missing_;
  size_t checks_ = 0;
};

// Mounts every pack of the report, so that threads can read in them.
std::vector<std::unique_ptr<PackMount>> MountPacks(const ReportData& data) {
  std::unordered_set<Nox::PString> names;
  for (const ReportAsset& asset : data.assets)
    names.insert(asset.folder.pack);
  std::vector<std::unique_ptr<PackMount>> mounts;
  for (const Nox::PString name : names)
    mounts.push_back(std::make_unique<PackMount>(name));
  return mounts;
}

const PictureSize& SizeFor(size_t assets) {
  return *std::find_if(std::begin(kPictureSizes), std::end(kPictureSizes),
                       [=](const PictureSize& size) { return assets <= size.assets; });
}

}  // namespace

ReportData GatherReport(const Console& console, const ReportScope& scope) {
  ZEBAssetQuery query;
  if (!scope.allKnown) query.installed = QueryFilter::kMustBeTrue;
  KUIDList found;
  ZEBSearchAssets(query, found);

  ProgressBar progress(console, "Reading assets", found.Count());
  const ZEBAssetLock lock(true);  // the names of authors want it so
  Gathering gathering(scope);
  for (const KUID& kuid : found) {
    if (IsInterrupted()) break;
    if (std::optional<AssetEntry> entry = FindAsset(kuid)) gathering.Add(std::move(*entry));
    progress.Advance();
  }
  return gathering.Finish();
}

void AddThumbnails(const Console& console, ReportData& data) {
  const auto mounts = MountPacks(data);
  const PictureSize& box = SizeFor(data.assets.size());
  ProgressBar progress(console, "Making thumbnails", data.assets.size());
  const auto make = [&](size_t i) {
    const Nox::Location& folder = data.assets[i].folder;
    if (folder.path.empty()) return std::string();
    const auto picture = MakeThumbnail(folder, box.width, box.height);
    return picture ? Base64(*picture) : std::string();
  };
  const auto take = [&](size_t i, std::string&& picture) {
    data.assets[i].thumbnail = std::move(picture);
    progress.Advance();
    return !IsInterrupted();
  };
  const unsigned workers = Nox::WorkerCount();
  (void)Nox::ProduceInOrder<std::string>(data.assets.size(), workers, size_t{workers} * 16, make, take);
}

}  // namespace morvex::host
