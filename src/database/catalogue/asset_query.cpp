#include "database/catalogue/asset_query.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/fold_compare.h"
#include "engine/text.h"
#include "validation/categories/category_expression.h"
#include "validation/categories/regions.h"

namespace morvex {
namespace {

// Tests records against a query, cheap questions first. Questions whose answers must be computed are asked only
// where the query cares.
class Matcher {
 public:
  Matcher(ZEBAssetCache& cache, const ZEBAssetQuery& query) : cache_(cache), query_(query) {
    region_ = query.regionFilter;
    if (!region_.empty() && !(region_.size() == 2 && IsRegionCode(region_)))
      region_ = RegionCodeFromName(region_);
  }

  bool Matches(ZEBAssetInfo& record) const {
    return Places(record) && Numbers(record) && Texts(record) && Standing(record) && Names(record) &&
           Bits(record);
  }

 private:
  template <typename Answer>
  static bool Passes(QueryFilter filter, Answer answer) {
    return filter == QueryFilter::kEither || answer() == (filter == QueryFilter::kMustBeTrue);
  }
  static bool Within(const QueryTimeRange& range, uint64_t time) {
    return (range.low == 0 || time >= range.low) && (range.high == 0 || time <= range.high);
  }
  bool Places(ZEBAssetInfo& record) const {
    return Passes(query_.installed, [&] { return record.IsInstalled(); }) &&
           Passes(query_.committed, [&] { return record.IsCommitted(); }) &&
           (query_.categoryFilter.empty() ||
            MatchExpression(record.CategoryClass(), query_.categoryFilter)) &&
           Passes(query_.localCopy, [&] { return record.HasLocalCopy(); }) &&
           Passes(query_.open, [&] { return record.IsOpen(); }) &&
           Passes(query_.archived, [&] { return cache_.IsArchived(record); }) &&
           Passes(query_.enabled, [&] { return record.Has(AssetState::kEnabled); });
  }

  bool Numbers(const ZEBAssetInfo& record) const {
    const bool anyRating = query_.ratingLow > query_.ratingHigh;
    if (!anyRating && (record.Rating() < query_.ratingLow || record.Rating() > query_.ratingHigh))
      return false;
    const auto limited = [](const QueryTimeRange& range) { return range.low != 0 || range.high != 0; };
    if (!limited(query_.installedRange) && !limited(query_.modifiedRange)) return true;
    const AssetNumbers numbers = record.Numbers();
    return Within(query_.installedRange, numbers.installedTime) &&
           Within(query_.modifiedRange, numbers.modifiedTime);
  }

  bool Texts(const ZEBAssetInfo& record) const {
    return Passes(query_.named, [&] { return !record.DisplayName().empty(); }) &&
           (query_.eraFilter.empty() ||
            MatchExpression(record.Text(AssetText::kEraList), query_.eraFilter)) &&
           (region_.empty() || MatchExpression(record.Text(AssetText::kRegionList), region_));
  }

  bool Standing(ZEBAssetInfo& record) const {
    return (query_.subset == nullptr || query_.subset->Contains(record.Kuid())) &&
           Passes(query_.latest, [&] { return cache_.IsLatest(record); }) &&
           Passes(query_.obsoleted, [&] { return cache_.IsObsoleted(record); });
  }

  bool Names(const ZEBAssetInfo& record) const {
    if (query_.nameMode == ZEBAssetQuery::kExactName)
      return FoldCompare(record.DisplayName(), query_.nameFilter) == 0;
    if (query_.nameMode != ZEBAssetQuery::kFuzzyName || query_.nameFilter.empty()) return true;
    // The longest run of bytes that both have must be as long as the filter, so it is the filter.
    return Nox::FindIgnoreCase(record.DisplayName(), query_.nameFilter) != std::string_view::npos;
  }

  bool Bits(ZEBAssetInfo& record) const {
    return (query_.authorFilter == 0 || static_cast<uint32_t>(record.Kuid().userId) == query_.authorFilter) &&
           Passes(query_.missingDeps, [&] { return cache_.MissingDeps(record); }) &&
           Passes(query_.errors, [&] { return record.Has(AssetFlag::kHasErrors); }) &&
           Passes(query_.reskin, [&] { return record.Has(AssetState::kReskin); }) &&
           Passes(query_.builtIn, [&] { return record.Has(AssetFlag::kBuiltIn); }) &&
           Passes(query_.listing, [&] { return record.PermitListing(); }) &&
           Passes(query_.pinned, [&] { return record.Has(AssetState::kPinned); }) &&
           (query_.mapFilter.IsNull() || record.Numbers().mapKuid == query_.mapFilter) &&
           (query_.keywordFilter.empty() || MatchExpression(record.SearchWords(), query_.keywordFilter));
  }

  ZEBAssetCache& cache_;
  const ZEBAssetQuery& query_;
  std::string region_;
};

}  // namespace

void ZEBSearchAssets(const ZEBAssetQuery& query, KUIDList& list) {
  const ZEBAssetLock lock(false);
  if (!lock) return;
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  const Matcher matcher(cache, query);
  cache.View().ForEach([&](ZEBAssetInfo& record) {
    if (matcher.Matches(record)) list.Add(record.Kuid());
  });
}

}  // namespace morvex
