#include "net/station/station_answers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "net/station/service_urls.h"
#include "tests/net/server_process.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

class StationAnswersTest : public testing::Test {
 protected:
  // With a line end for each ';'.
  std::string File(std::string text) {
    std::replace(text.begin(), text.end(), ';', '\n');
    PutText(scratch_ / "answer", text);
    return scratch_ / "answer";
  }
  const ScratchFolder scratch_;
};

TEST_F(StationAnswersTest, SearchNamesLists) {
  const auto answer =
      ReadSearchAnswer(File("timestamp \"2026-01-02\";files {;0 https://h/one.gz;1 ftp://h/two.gz;"
                            "2 file://morvex/cache/internet/x;3 qslogin://h;4;}"));
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->timestamp, "2026-01-02");
  ASSERT_EQ(answer->lists.size(), 2U);
  EXPECT_EQ(answer->lists[1].ToString(), "ftp://h/two.gz");
  for (const char* bad : {"", "files { 0 \"https://h/x\" }", "<html>timestamp</html>", "timestamp \"\""})
    EXPECT_FALSE(ReadSearchAnswer(File(bad))) << bad;
  EXPECT_FALSE(ReadSearchAnswer(scratch_ / "missing"));
}

TEST_F(StationAnswersTest, TicketsOfFirstClassCount) {
  const std::tuple<const char*, float, float> kRows[] = {
      {"", 0, 0},
      {"0 {; type FCT; rem 2.5; }", 2.5F, 0},
      {"0 {; type fct; rem 3; }; 1 {; type FCT; rem 7; }; 2 {; type XYZ; rem 9; }", 7, 0},
      {"0 {; type FCT; infinite 1; suspended 1; rem 4; }", 0, 1000},
      {"0 {; type FCT; rem -4; }; 1 {; type FCT; suspended 1; rem 1; }", 0, 1},
      {"0 {; rem 5; }; 1 FCT", 0, 0},
  };
  for (const auto& [tickets, active, suspended] : kRows) {
    const TicketAnswer answer = ReadTicketAnswer(File("tickets {; " + std::string(tickets) + "; }"));
    EXPECT_EQ(answer.activeDays, active) << tickets;
    EXPECT_EQ(answer.suspendedDays, suspended) << tickets;
  }
  EXPECT_EQ(ReadTicketAnswer(File("error \"no such user\"")).error, "no such user");
}

TEST_F(StationAnswersTest, ProfilesAreResults) {
  const auto profiles = ReadProfileAnswer(File(
      "0 {; result {; profileid 5; userid 17; username Ann; }; }; 1 {; other {; userid 3; }; }; note x"));
  ASSERT_EQ(profiles.size(), 1U);
  EXPECT_EQ(profiles[0].profileId, 5U);
  EXPECT_EQ(profiles[0].userId, 17U);
  EXPECT_EQ(profiles[0].username, "Ann");
  EXPECT_TRUE(ReadProfileAnswer(File("error x; 0 {; result {; userid 1; username A; }; }")).empty());
}

TEST(ServiceUrls, AreAsTheServerKnowsThem) {
  const Endpoint server{"h", 443};
  const std::string scripts = "https://h/games/gamefiles/morvex/scripts/";
  EXPECT_EQ(UpdateSearchUrl(server, "2026 1\r\n").ToString(),
            scripts + "RecordManager/client.php?LASTRECEIVEDFILE=2026%201%0D%0A");
  EXPECT_EQ(TicketUrl({"h", 4430}).ToString(), "https://h:4430/games/gamefiles/morvex/scripts/FCT.php");
  EXPECT_EQ(ProfileUrl(server, 17).ToString(), scripts + "profile_details.php?SearchCriteria=17");
  EXPECT_EQ(DescriptionUrl(server, KUID(1, 2, 3)).ToString(),
            scripts + "asset_description.php?SearchCriteria=<kuid2:1:2:3>");
  EXPECT_EQ(ThumbnailUrl(server, KUID(1, 2, 0)).ToString(),
            scripts + "asset_thumbnail.php?SearchCriteria=<kuid:1:2>");
}

}  // namespace
}  // namespace morvex
