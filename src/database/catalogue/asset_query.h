#pragma once

#include <cstdint>
#include <string>

#include "tagdata/kuid.h"
#include "tagdata/kuid_list.h"

namespace morvex {

enum class QueryFilter : uint8_t { kMustBeTrue = 0, kMustBeFalse = 1, kEither = 2 };

// Seconds since 1970, both included; 0 is no limit on that side.
struct QueryTimeRange {
  uint64_t low = 0;
  uint64_t high = 0;
};

// What a search asks for. A new query lets every record pass.
struct ZEBAssetQuery {
  QueryFilter installed = QueryFilter::kEither;
  QueryFilter committed = QueryFilter::kEither;
  QueryFilter latest = QueryFilter::kEither;
  QueryFilter obsoleted = QueryFilter::kEither;
  QueryFilter localCopy = QueryFilter::kEither;
  QueryFilter named = QueryFilter::kEither;
  QueryFilter open = QueryFilter::kEither;
  QueryFilter archived = QueryFilter::kEither;
  QueryFilter enabled = QueryFilter::kEither;
  QueryFilter missingDeps = QueryFilter::kEither;
  QueryFilter errors = QueryFilter::kEither;
  QueryFilter reskin = QueryFilter::kEither;
  QueryFilter builtIn = QueryFilter::kEither;
  QueryFilter listing = QueryFilter::kEither;
  QueryFilter pinned = QueryFilter::kEither;

  QueryTimeRange installedRange;
  QueryTimeRange modifiedRange;
  int32_t ratingLow = 0;  // a low limit above the high one is no limit
  int32_t ratingHigh = -1;

  enum NameMode : uint32_t { kExactName = 0, kFuzzyName = 1 };  // any other value: names aren't compared
  uint32_t nameMode = kFuzzyName;
  std::string nameFilter;
  std::string categoryFilter;  // category expressions, these four
  std::string eraFilter;
  std::string keywordFilter;
  std::string regionFilter;  // or the name of one region

  uint32_t authorFilter = 0;         // 0: any
  const KUIDList* subset = nullptr;  // if set, only these; lives at least as long as the search
  KUID mapFilter;                    // null: any
};

// Appends the KUIDs that pass, in the order of the sorted view. Takes the database lock.
void ZEBSearchAssets(const ZEBAssetQuery& query, KUIDList& list);

}  // namespace morvex
