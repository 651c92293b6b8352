#include "database/catalogue/sorted_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "database/catalogue/fold_compare.h"
#include "tests/catalogue/installation.h"

namespace morvex::test {
namespace {

TEST(FoldCompareTest, OrdersByFoldedBytes) {
  EXPECT_EQ(FoldCompare("aBc", "AbC"), 0);
  EXPECT_LT(FoldCompare("ab", "abc"), 0);
  EXPECT_GT(FoldCompare("Z", "_"), 0) << "letters count as small ones, behind '_'";
  EXPECT_GT(FoldCompare("\xE4", "z"), 0);
  EXPECT_EQ(FoldPrefix("ABCDEFGHi"), FoldPrefix("abcdefghJ"));
  EXPECT_LT(FoldPrefix("ab"), FoldPrefix("aba"));
}

// Against the plain way: sort everything anew.
TEST(SortedViewTest, StaysInOrderThroughAnyChanges) {
  Installation place;
  place.Start();
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  const ZEBAssetLock lock(true);
  cache.View();
  std::mt19937 random(7);
  std::vector<ZEBAssetInfo*> records;
  const auto name = [&] { return "Wagon " + std::to_string(random() % 500); };
  for (int step = 0; step < 6000; ++step) {
    const size_t what = random() % 10;
    if (what < 5 || records.empty()) {
      records.push_back(cache.Create(KUID(1, step, 0)));
      records.back()->SetText(AssetText::kUsername, name());
    } else if (what < 8) {
      records[random() % records.size()]->SetText(AssetText::kUsername, name());
    } else if (what < 9) {
      const size_t victim = random() % records.size();
      cache.Remove(*records[victim]);
      records.erase(records.begin() + static_cast<ptrdiff_t>(victim));
    } else {
      cache.SortView();
    }
  }
  cache.SortView();
  std::vector<const ZEBAssetInfo*> seen;
  cache.View().ForEach([&](const ZEBAssetInfo& record) { seen.push_back(&record); });
  std::vector<const ZEBAssetInfo*> wanted(records.begin(), records.end());
  std::sort(wanted.begin(), wanted.end(), [](const ZEBAssetInfo* a, const ZEBAssetInfo* b) {
    const int order = FoldCompare(a->DisplayName(), b->DisplayName());
    return order != 0 ? order < 0 : a->Kuid().contentId < b->Kuid().contentId;
  });
  EXPECT_EQ(seen, wanted);
}

TEST(SortedViewTest, ANewRecordStandsAtTheEndUntilTheNextSort) {
  Installation place;
  place.AddAsset("local/a", "<kuid:1:1>", "Zebra");
  place.Start();
  EXPECT_EQ(ViewText(), "1:1");
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  EXPECT_EQ(cache.Create(Parse("<kuid:1:1>")), nullptr);
  EXPECT_EQ(cache.Create(Parse("<kuid:1:2>"))->Username(), "New Asset");
  EXPECT_EQ(ViewText(), "1:1 1:2");
  cache.SortView();
  EXPECT_EQ(ViewText(), "1:2 1:1");
}

}  // namespace
}  // namespace morvex::test
