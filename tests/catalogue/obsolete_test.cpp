#include <gtest/gtest.h>

#include "database/catalogue/obsolete_map.h"
#include "tests/catalogue/installation.h"

namespace morvex::test {
namespace {

KUID Number(int content) {
  return KUID(1, content, 0);
}

TEST(ObsoleteMapTest, FlattensChainsAndRefusesCircles) {
  ZEBObsoleteMap map;
  EXPECT_FALSE(map.Set(Number(1), Number(1)));
  EXPECT_FALSE(map.Set(KUID(), Number(1)));
  EXPECT_FALSE(map.Set(Number(1), KUID()));
  EXPECT_TRUE(map.Set(Number(1), Number(2)));
  EXPECT_FALSE(map.Set(Number(2), Number(1)));
  EXPECT_TRUE(map.Set(Number(2), Number(3)));
  EXPECT_EQ(map.Find(Number(1)), Number(3));
  EXPECT_EQ(map.Find(Number(2)), Number(3));
  EXPECT_TRUE(map.Set(Number(0), Number(1))) << "goes on to what replaces the new one";
  EXPECT_EQ(map.Find(Number(0)), Number(3));
  EXPECT_TRUE(map.Set(Number(1), Number(9))) << "the last call wins";
  EXPECT_EQ(map.Find(Number(1)), Number(9));
  KUIDList replaced;
  map.Replacements(Number(3), replaced);
  EXPECT_EQ(replaced.Count(), 2U);
  map.Remove(Number(3));
  EXPECT_EQ(map.Count(), 1U);
  EXPECT_EQ(map.Find(Number(2)), KUID());
}

TEST(ObsoletesTest, FollowTheConfigurations) {
  Installation place;
  place.AddAsset("local/a", "<kuid2:10:1:3>", "A", "obsolete-table { 0 <kuid:10:5>\r\n1 <kuid:99:5>\r\n}");
  place.AddAsset("local/b", "<kuid:-5:1>", "B", "obsolete-table { 0 <kuid:99:6>\r\n}");
  place.AddAsset("local/c", "<kuid:10:5>", "C");
  place.AddAsset("editing/d", "<kuid:10:7>", "D", "obsolete-table { 0 <kuid:10:8>\r\n}");
  place.Start();
  const std::pair<const char*, const char*> kRows[] = {
      {"<kuid:10:1>", "<kuid2:10:1:3>"},    {"<kuid2:10:1:2>", "<kuid2:10:1:3>"},
      {"<kuid:10:5>", "<kuid2:10:1:3>"},    {"<kuid:99:5>", "<kuid:99:5>"},  // of another author
      {"<kuid:99:6>", "<kuid:-5:1>"},                                        // a built-in author may
      {"<kuid:10:8>", "<kuid:10:8>"},                                        // only open for edit
      {"<kuid2:10:1:3>", "<kuid2:10:1:3>"},
  };
  for (const auto& [old, replacement] : kRows)
    EXPECT_EQ(ZEBFindReplacement(Parse(old)), Parse(replacement)) << old;

  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  const ZEBAssetLock lock(true);
  EXPECT_TRUE(cache.IsObsoleted(Record("<kuid:10:5>")));
  cache.Remove(Record("<kuid2:10:1:3>"));
  EXPECT_FALSE(cache.IsObsoleted(Record("<kuid:10:5>")));
}

// What an asset had shadowed comes back from the tables of the others.
TEST(ObsoletesTest, RemovingAVersionUncoversTheLowerOne) {
  Installation place;
  place.AddAsset("local/a", "<kuid2:10:1:1>", "A");
  place.AddAsset("local/b", "<kuid2:10:1:2>", "B");
  place.Start();
  EXPECT_EQ(ZEBFindReplacement(Parse("<kuid:10:1>")), Parse("<kuid2:10:1:2>"));
  const ZEBAssetLock lock(true);
  ZEBAssetCache::Instance().Remove(Record("<kuid2:10:1:2>"));
  EXPECT_EQ(ZEBFindReplacement(Parse("<kuid:10:1>")), Parse("<kuid2:10:1:1>"));
}

}  // namespace
}  // namespace morvex::test
