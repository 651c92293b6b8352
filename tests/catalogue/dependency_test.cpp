#include <gtest/gtest.h>

#include "database/catalogue/asset_status.h"
#include "database/catalogue/dependency_list.h"
#include "database/catalogue/dependency_table.h"
#include "tests/catalogue/index_bytes.h"
#include "tests/catalogue/installation.h"

namespace morvex::test {
namespace {

KUID Number(int content) {
  return KUID(1, content, 0);
}

// The walk over stored pairs, which answers the first questions, and the index, which answers the rest.
TEST(DependencyTableTest, AnswersAlikeBeforeAndAfterItIsIndexed) {
  IndexBytes pairs;
  for (int i = 0; i < 60; ++i)
    pairs.Kuid(1, i % 6).Kuid(1, 100 + i % 10);
  const std::string& bytes = pairs.Bytes();
  DependencyTable table;
  table.Adopt({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
  const std::vector<KUID> dependencies = table.DependenciesOf(Number(2));
  const std::vector<KUID> dependants = table.DependantsOf(Number(103));
  EXPECT_EQ(dependencies.size(), 10U);
  EXPECT_EQ(dependants.size(), 6U);
  for (int i = 0; i < 20; ++i)
    table.DependenciesOf(Number(0));
  EXPECT_FALSE(table.IsUnchanged());
  EXPECT_EQ(table.DependenciesOf(Number(2)), dependencies);
  EXPECT_EQ(table.DependantsOf(Number(103)), dependants);

  table.Set(Number(3), {Number(2), Number(3), Number(1)});
  EXPECT_EQ(table.DependenciesOf(Number(3)), (std::vector{Number(2), Number(1)}));
  EXPECT_EQ(table.DependantsOf(Number(103)).size(), 4U);
  EXPECT_EQ(table.DependantsOf(Number(103)).size(), 4U);
  table.Set(Number(3), {});
  EXPECT_TRUE(table.DependantsOf(Number(2)).empty());
  EXPECT_EQ(table.Count(), 50U);
}

class DependencyStateTest : public ::testing::Test {
 protected:
  void Start(std::initializer_list<std::pair<const char*, const char*>> assets) {
    for (const auto& [kuid, dependencies] : assets) {
      place_.AddAsset("local/" + Parse(kuid).ToFileName(), kuid, kuid,
                      std::string("kuid-table {\r\n") + dependencies + "\r\n}");
    }
    place_.Start();
  }
  static bool Missing(const char* kuid) { return ZEBHasMissingDependencies(Parse(kuid), false); }
  static bool Faulty(const char* kuid) { return ZEBAssetCache::Instance().FaultyDeps(Record(kuid)); }

  Installation place_;
};

TEST_F(DependencyStateTest, MissingIsAskedThroughAllLevels) {
  Start({{"<kuid:1:1>", "a <kuid:1:2>"},
         {"<kuid:1:2>", "a <kuid:1:3>"},
         {"<kuid:1:4>", "a <kuid:1:5>"},  // a circle without an end
         {"<kuid:1:5>", "a <kuid:1:4>"},
         {"<kuid:1:6>", "a \"<kuid:1:4>\""},
         {"<kuid:1:7>", "a <kuid:1:7>"}});
  EXPECT_TRUE(Missing("<kuid:1:1>"));
  EXPECT_FALSE(Missing("<kuid:1:4>"));
  EXPECT_FALSE(Missing("<kuid:1:6>"));
  EXPECT_FALSE(Missing("<kuid:1:7>"));
  EXPECT_FALSE(Missing("<kuid:1:99>"));
  EXPECT_TRUE(ZEBHasMissingDependencies(Parse("<kuid:1:99>"), true));
}

TEST_F(DependencyStateTest, AnswersAreTrueWhenDependenciesComeAndGo) {
  Start({{"<kuid:1:1>", "a <kuid:1:2>"}, {"<kuid:1:2>", "a <kuid2:1:3:0>"}});
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  EXPECT_TRUE(Missing("<kuid:1:1>"));
  {
    const ZEBAssetLock lock(true);
    cache.Create(Parse("<kuid:1:3>"))->SetText(AssetText::kLocalPath, "local/kuid 1 3");
    EXPECT_FALSE(Missing("<kuid:1:1>"));
    Record("<kuid:1:3>").SetText(AssetText::kLocalPath, "");
    EXPECT_TRUE(Missing("<kuid:1:1>"));
    EXPECT_TRUE(Missing("<kuid:1:2>"));
    cache.Remove(Record("<kuid:1:3>"));
  }
  // A later version stands in for the one that is named, two levels up as well.
  place_.AddAsset("local/new", "<kuid2:1:3:5>", "3");
  const ZEBAssetLock lock(true);
  ZEBAssetInfo& later = *cache.Create(Parse("<kuid2:1:3:5>"));
  later.SetText(AssetText::kLocalPath, "local/new");
  EXPECT_TRUE(Missing("<kuid:1:1>"));
  EXPECT_TRUE(cache.Refresh(later));
  EXPECT_FALSE(Missing("<kuid:1:1>"));
  cache.Remove(later);
  EXPECT_TRUE(Missing("<kuid:1:1>"));
}

TEST_F(DependencyStateTest, FaultsAreInherited) {
  Start({{"<kuid:1:1>", "a <kuid:1:2>"},
         {"<kuid:1:2>", "a <kuid:1:3>"},
         {"<kuid:1:3>", ""},
         {"<kuid:1:4>", "a <kuid:1:99>"}});
  EXPECT_FALSE(Faulty("<kuid:1:1>"));
  const ZEBAssetLock lock(true);
  Record("<kuid:1:3>").Set(AssetFlag::kHasErrors, true);
  ZEBAssetCache::Instance().UpdateDerived(Record("<kuid:1:3>"), false);
  EXPECT_TRUE(Faulty("<kuid:1:1>"));
  EXPECT_FALSE(Faulty("<kuid:1:3>")) << "its own faults are not its dependencies'";
  EXPECT_FALSE(Faulty("<kuid:1:4>"));
}

// As deep as a file can make it: no step may use the stack by depth.
TEST_F(DependencyStateTest, GoesDownAndUpAChainOfAnyLength) {
  constexpr int kLength = 200000;
  IndexBytes index;
  index.Header(kLength);
  for (int i = 0; i < kLength; ++i)
    index.Record(1, i, "link", "local/x");
  IndexBytes pairs;
  pairs.U32(0).U32(kLength);
  for (int i = 0; i < kLength; ++i)
    pairs.Kuid(1, i).Kuid(1, i + 1);
  place_.Write("assets.tdx", IndexOf(index, {.dependencies = pairs}));
  place_.Start();
  const ZEBAssetLock lock(true);
  for (int i = 0; i < kLength; ++i) {
    ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(Number(i));
    ASSERT_NE(record, nullptr);
    record->Set(AssetFlag::kMissingDepsKnown, false);
  }
  EXPECT_TRUE(Missing("<kuid:1:0>"));
  ZEBAssetCache::Instance().ForgetDependants(Number(kLength));
  EXPECT_FALSE(Record("<kuid:1:0>").Has(AssetFlag::kMissingDepsKnown));
}

}  // namespace
}  // namespace morvex::test
