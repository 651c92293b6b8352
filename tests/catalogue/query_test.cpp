#include "database/catalogue/asset_query.h"

#include <gtest/gtest.h>

#include <functional>

#include "database/catalogue/asset_status.h"
#include "database/catalogue/author_names.h"
#include "database/catalogue/kuid_generator.h"
#include "tests/catalogue/installation.h"

namespace morvex::test {
namespace {

class QueryTest : public ::testing::Test {
 protected:
  // b: built in; l: local; o: open only; k: known only.
  void SetUp() override {
    place_.AddAsset("trains/g/b", "<kuid:-1:1>", "Bridge", "category-region-0 \"DE\"");
    place_.AddAsset("local/l", "<kuid:10:2>", "Lamp post",
                    "category-era-0 \"1950\"\r\ncategory-keyword \"Red;Iron\"");
    place_.AddAsset("editing/o", "<kuid:20:3>", "old lamp", "kuid-table { a <kuid:9:9>\r\n}");
    place_.Start();
    const ZEBAssetLock lock(true);
    ZEBAssetInfo& known = *ZEBAssetCache::Instance().Create(KUID(30, 4, 2));
    known.SetText(AssetText::kUsername, "zoo");
    known.Set(AssetState::kOnStation, true);
    ZEBAssetCache::Instance().archives.Add().kuids.Add(KUID(30, 4, 2));
    known.Set(AssetState::kArchivedKnown, false);
    Record("<kuid:10:2>").SetRating(4);
  }

  static std::string Found(const std::function<void(ZEBAssetQuery&)>& set) {
    ZEBAssetQuery query;
    set(query);
    KUIDList list;
    ZEBSearchAssets(query, list);
    std::string found;
    for (const KUID& kuid : list)
      found += ZEBAssetCache::Instance().Find(kuid)->DisplayName().substr(0, 1);
    return found;
  }

  Installation place_;
};

TEST_F(QueryTest, FiltersChooseByTheirProperty) {
  using Q = ZEBAssetQuery;
  constexpr auto kYes = QueryFilter::kMustBeTrue;
  constexpr auto kNo = QueryFilter::kMustBeFalse;
  const std::pair<const char*, std::function<void(Q&)>> kRows[] = {
      {"BLoz", [](Q&) {}},
      {"BLo", [&](Q& q) { q.installed = kYes; }},
      {"BL", [&](Q& q) { q.committed = kYes; }},
      {"oz", [&](Q& q) { q.committed = kNo; }},
      {"L", [&](Q& q) { q.localCopy = kYes; }},
      {"o", [&](Q& q) { q.open = kYes; }},
      {"z", [&](Q& q) { q.archived = kYes; }},
      {"o", [&](Q& q) { q.missingDeps = kYes; }},
      {"B", [&](Q& q) { q.builtIn = kYes; }},
      {"", [&](Q& q) { q.enabled = kNo; }},
      {"BLoz", [&](Q& q) { q.named = kYes; }},
      {"BLoz", [&](Q& q) { q.latest = kYes; }},
      {"", [&](Q& q) { q.obsoleted = kYes; }},
      {"", [&](Q& q) { q.errors = kYes; }},
      {"L", [](Q& q) { q.ratingLow = 3, q.ratingHigh = 5; }},
      {"Lo", [](Q& q) { q.nameFilter = "LAMP"; }},
      {"", [](Q& q) { q.nameFilter = "lamps"; }},
      {"o", [](Q& q) { q.nameMode = Q::kExactName, q.nameFilter = "Old Lamp"; }},
      {"BLoz", [](Q& q) { q.nameMode = 2, q.nameFilter = "nothing"; }},
      {"BLo",
       [](Q& q) {
         q.categoryFilter = "SY|?";
         q.categoryFilter = "SY";
       }},
      {"L", [](Q& q) { q.eraFilter = "1950"; }},
      {"B", [](Q& q) { q.regionFilter = "DE"; }},
      {"B", [](Q& q) { q.regionFilter = "Germany"; }},
      {"BLoz", [](Q& q) { q.regionFilter = "Nowhere"; }},
      {"L", [](Q& q) { q.keywordFilter = "iron"; }},
      {"L", [](Q& q) { q.keywordFilter = "lamp;post"; }},
      {"o", [](Q& q) { q.authorFilter = 20; }},
      {"", [](Q& q) { q.mapFilter = KUID(1, 1, 0); }},
      {"z",
       [](Q& q) {
         q.installedRange.high = 1;
         q.installed = QueryFilter::kMustBeFalse;
       }},
  };
  for (size_t i = 0; i < std::size(kRows); ++i)
    EXPECT_EQ(Found(kRows[i].second), kRows[i].first) << "row " << i;
  KUIDList subset;
  subset.Add(KUID(10, 2, 0));
  subset.Add(KUID(77, 7, 0));
  EXPECT_EQ(Found([&](Q& q) { q.subset = &subset; }), "L");
}

TEST_F(QueryTest, ALaterVersionMakesAKnownOneOutOfDate) {
  ZEBAssetStatus status;
  ASSERT_TRUE(ZEBGetAssetStatus(KUID(30, 4, 2), status));
  EXPECT_TRUE(status.latest);
  place_.AddAsset("local/new", "<kuid2:30:4:3>", "newer");
  const ZEBAssetLock lock(true);
  ZEBAssetInfo& newer = *ZEBAssetCache::Instance().Create(KUID(30, 4, 3));
  newer.SetText(AssetText::kLocalPath, "local/new");
  ZEBAssetCache::Instance().Refresh(newer);
  ASSERT_TRUE(ZEBGetAssetStatus(KUID(30, 4, 2), status));
  EXPECT_FALSE(status.latest);
  ASSERT_TRUE(ZEBGetAssetStatus(KUID(30, 4, 3), status));
  EXPECT_TRUE(status.latest);
  EXPECT_EQ(Found([](ZEBAssetQuery& q) { q.obsoleted = QueryFilter::kMustBeTrue; }), "z");
}

TEST_F(QueryTest, AuthorsHaveNames) {
  AuthorTable& authors = ZEBAssetCache::Instance().authors;
  authors.AddProfile(5, Nox::PString("Ann"), 12);
  const std::pair<int, const char*> kRows[] = {
      {0, "unknown"}, {-2, "unknown"}, {-7, "Dovik"}, {12, "Ann"}, {17, "#17"}};
  for (const auto& [number, name] : kRows)
    EXPECT_EQ(ZEBAuthorName(number), name) << number;
  EXPECT_EQ(authors.NameToUserId("#17"), 17);
  EXPECT_EQ(authors.NameToUserId("aNN"), 12);
  EXPECT_EQ(authors.NameToUserId("nobody"), 0);
  ZEBAuthorName(17);
  EXPECT_EQ(authors.PendingUserIds().size(), 1U);
  EXPECT_TRUE(authors.AddProfile(5, Nox::PString("Bob"), 0)) << "takes the author number over";
  EXPECT_EQ(ZEBAuthorName(12), "Bob");
  for (int user = 100; user < 140; ++user)
    ZEBAuthorName(user);
  EXPECT_EQ(authors.PendingUserIds().size(), AuthorTable::kMaxPending);
  EXPECT_EQ(authors.PendingUserIds().front(), 107U) << "the oldest made room";
}

}  // namespace
}  // namespace morvex::test
