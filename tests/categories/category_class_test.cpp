#include "validation/categories/category_class.h"

#include <gtest/gtest.h>

#include "tests/categories/config_of.h"
#include "validation/categories/category_tables.h"

namespace morvex {
namespace {

TEST(CategoryClass, FollowsFromTheConfiguration) {
  const std::pair<TagContainer, const char*> cases[] = {
      {ConfigOf({{"kind", "traincar"}, {"category-class", "AS"}}), "TR;TV;TDR;ROLL"},
      {ConfigOf({{"kind", "TrainCar"}, {"category-class", "at"}, {"engine", "1"}}), "TR;TV;LOC;STEM;LOCO"},
      {ConfigOf({{"kind", "traincar"}, {"category-class", "WX"}, {"engine", "1"}}), "TR;TV;LOCO"},
      {ConfigOf({{"kind", "traincar"}, {"tender", "1"}, {"engine", "1"}}), "TR;TV;TEND"},
      {ConfigOf({{"kind", "traincar"}, {"category-class", "TR;TV;LOC;STEM"}}), "TR;TV;ROLL"},
      // A bridge that isn't said to be track can't be of a track class.
      {ConfigOf({{"kind", "bridge"}, {"category-class", "TB"}}), "SPLN;BRG"},
      {ConfigOf({{"kind", "bridge"}, {"category-class", "TB"}, {"istrack", "1"}}), "TK;BRG"},
      {ConfigOf({{"kind", "bridge"}, {"type", "Tunnels"}, {"isroad", "1"}}), "SPLN;TUN"},
      {ConfigOf({{"kind", "bridge"}, {"type", "tunnels"}, {"istrack", "0"}}), "SPLN;TUN"},
      {ConfigOf({{"kind", "bridge"}, {"type", "tunnels"}}), "TK;TUN"},
      {ConfigOf({{"kind", "track"}, {"istrack", "0"}}), "SPLN"},
      {ConfigOf({{"kind", "track"}, {"category-class", "SR"}, {"istrack", "0"}}), "RD;SPLN"},
      // Trackside objects keep their class only if they are said to stand at the track.
      {ConfigOf({{"kind", "scenery"}, {"category-class", "WX"}, {"trackside", "2.4"}}), "TO"},
      {ConfigOf({{"kind", "scenery"}, {"category-class", "WX"}}), "SY;SCEN"},
      {ConfigOf({{"kind", "scenery"}, {"type", "trackside"}}), "SY;SCEN"},
      {ConfigOf({{"kind", "mojunction"}}), "TO;?WX"},
      {ConfigOf({{"kind", "scenery"}, {"category-class", "FT"}}), "FL;SCEN;SY"},
      {ConfigOf({{"kind", "profile"}, {"category-class", "YP"}}), "SS"},
      {ConfigOf({{"category-class", "BH"}}), "BD;RES"},
      {ConfigOf({{"kind", "nothing"}}), ""},
      {TagContainer(), ""},
  };
  for (size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(GetCategoryClass(cases[i].first), cases[i].second) << "case " << i;
  }
  EXPECT_EQ(ClassFromLegacyCode("anything", "OHD"), "") << "two letters alone";
  EXPECT_EQ(ClassFromLegacyCode("traincar", "AA AC"), "") << "one code alone";
  EXPECT_EQ(KindFromClass("TR;CMP;HORN;SD"), "hornsound");
}

TEST(CategoryClass, KnowsTheVocabulary) {
  for (const char* good : {"", "TR;TV;LOC;STEM", ";TR||?WS;", "GEN"})
    EXPECT_TRUE(IsValidCategoryClass(good));
  for (const char* bad : {"TR;LOCO", "tr", "-TR", "STEAM"})
    EXPECT_FALSE(IsValidCategoryClass(bad));
}

TEST(CategoryLabel, TakesTheHighestPriority) {
  EXPECT_EQ(CategoryLabel(CategoryLabelTable, "TX;ENV;GRND"), "TextureEnv");
  EXPECT_EQ(CategoryLabel(CategoryLabelTable, "CMP;TX"), "TextureNonEnv");
  EXPECT_EQ(CategoryLabel(CategoryLabelTable, "FL;BD"), "Building");
  EXPECT_EQ(CategoryLabel(CategoryLabelTable, ""), "Misc");
  EXPECT_EQ(CategoryLabel(CategoryNameTable, "TK;BRG"), "Bridge");
  EXPECT_EQ(CategoryLabel(CategoryNameTable, "XX"), "");
}

}  // namespace
}  // namespace morvex
