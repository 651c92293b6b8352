#include <gtest/gtest.h>

#include "tests/categories/config_of.h"
#include "validation/categories/asset_name.h"
#include "validation/categories/eras.h"
#include "validation/categories/keyword_index.h"
#include "validation/categories/region_table.h"
#include "validation/categories/regions.h"

namespace morvex {
namespace {

using ListCase = std::pair<TagContainer, const char*>;

TEST(Regions, ComeFromTheNewestTag) {
  const ListCase cases[] = {
      {ConfigOf({{"category-region", "x;Y"}, {"category-region-0", "DE"}}), "x;Y"},
      {ConfigOf({{"category-region-0", "de "},
                 {"category-region-1", "Nowhere"},
                 {"category-region-2", "austria"},
                 {"category-region-3", "DEU"},
                 {"category-region-5", "FR"}}),
       "DE;AT"},
      {ConfigOf({{"morvex-build", "2.4"}, {"category-region-0", "TO"}}), "00"},
      {ConfigOf({{"morvex-build", "2.5"}, {"category-region-0", "TO"}}), "TO"},
      {ConfigOf({{"morvex-build", "2.4"}, {"category-region-0", "TO"}, {"category-region-1", "DE"}}),
       "TO;DE"},
      {ConfigOf({{"region", "<none>"}, {"origin", "DE"}}), ""},
      {ConfigOf({{"region", "Deutschland"}}), ""},
      {ConfigOf({{"region", "Germany"}}), "DE"},
      {ConfigOf({{"origin", "THIRD_PARTY_usa"}}), "US"},
      {TagContainer(), ""},
  };
  for (size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(GetRegionList(cases[i].first), cases[i].second) << "case " << i;
  }
}

TEST(Regions, CodesAndNames) {
  EXPECT_EQ(RegionTable.front().code, 0x20204144u);
  EXPECT_EQ(RegionNameFromCode("US;DE"), "United States");
  EXPECT_EQ(RegionNameFromCode("us"), "");
  EXPECT_EQ(RegionNameFromCode("U"), "");
  EXPECT_EQ(RegionCodeFromName("gb"), "UK");
  EXPECT_EQ(RegionCodeFromName("Generic"), "00");
  EXPECT_EQ(RegionCodeFromName(""), "");
  EXPECT_TRUE(IsRegionCode("GBX"));
  EXPECT_FALSE(IsRegionCode("XX"));
}

TEST(Eras, AreYears) {
  const ListCase cases[] = {
      {ConfigOf({{"category-era", "1950s"}, {"category-era-0", "1900"}}), "1950s"},
      {ConfigOf({{"category-era-0", " 1950s "}, {"category-era-1", "50S"}, {"category-era-2", "50"}}),
       "1950;50;50"},
      {ConfigOf({{"category-era-0", "steam"}, {"category-era-1", "195"}, {"category-era-2", "1960ss"}}), ""},
  };
  for (const auto& [config, list] : cases)
    EXPECT_EQ(GetEraList(config), list);
  EXPECT_EQ(EraFromYear(1789), "1900");
  EXPECT_EQ(EraFromYear(1919), "1910");
  EXPECT_EQ(EraFromYear(1999), "1990");
  EXPECT_EQ(EraFromYear(2024), "2000");
}

TEST(AssetName, IsCleaned) {
  const char* const cases[][2] = {
      {" \t_Big Engine_\r\n", "Big Engine"},
      {"'Big' \"Engine\"", "Big' \"Engine"},
      {"\x93Old\x94", "Old"},
      {"\xE2\x80\x9C"
       "New"
       "\xE2\x80\x9D",
       "New"},
      {"\"\"", "Untitled"},
      {"\x93\x94", "Untitled"},
      {" _ ", "Untitled"},
      {"", "Untitled"},
      // A Cyrillic letter whose last byte is a quote mark of the code page.
      {"\xD0\x93\xD0\x94", "\xD0\x93\xD0\x94"},
  };
  for (const auto& [text, name] : cases)
    EXPECT_EQ(CleanAssetName(text), name) << text;
  EXPECT_EQ(GetAssetName(ConfigOf({{"name", "b"}, {"username", "a"}}), "x"), "a");
  EXPECT_EQ(GetAssetName(ConfigOf({{"name", "b"}, {"username", ""}}), "x"), "b");
  EXPECT_EQ(GetAssetName(TagContainer(), "local/content 1\\old_"), "old");
}

TEST(BuildVersion, IsGuessedWhereItMakesNoSense) {
  EXPECT_FLOAT_EQ(GetBuildVersion(ConfigOf({{"morvex-build", "2.4"}})), 2.4f);
  EXPECT_FLOAT_EQ(GetBuildVersion(ConfigOf({{"morvex-build", "100"}})), 1.3f);
  EXPECT_FLOAT_EQ(GetBuildVersion(ConfigOf({{"morvex-build", "0.9"}, {"class", "X"}})), 2.0f);
}

TEST(KeywordIndex, HoldsKeywordsNameAndClass) {
  EXPECT_EQ(KeywordsFromText("  (Big) Engine, \"blue\""), "big;engine;blue;");
  EXPECT_EQ(RebuildKeywordIndex({"steam;big", "Big Engine (blue)", "TR;TV;LOCO"}),
            "steam;big;engine;blue;locomotive");
  EXPECT_EQ(RebuildKeywordIndex({"", "Tender", "TR;TV;TEND"}), "tender");
  EXPECT_EQ(RebuildKeywordIndex({"", "", "BD;IND;ACTV;ROLL"}), "interactive;rollingstock");
}

}  // namespace
}  // namespace morvex
