#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/host/host_run.h"
#include "tests/net/station_server.h"

namespace {

constexpr const char* kCrane = "<kuid:523841:1013>";

class HostNetwork : public testing::Test {
 protected:
  HostNetwork() { setenv("MORVEX_PASSWORD", "secret", 1); }
  ~HostNetwork() override { unsetenv("MORVEX_PASSWORD"); }

  std::vector<std::string> AtStation(std::vector<std::string> arguments) const {
    const std::string server = "localhost:" + std::to_string(station_.Port());
    for (const std::string& argument : {std::string("--server"), server, std::string("--user"),
                                        std::string("me"), std::string("--insecure")})
      arguments.push_back(argument);
    return arguments;
  }

  HostInstallation place_;
  StationServer station_;
};

TEST_F(HostNetwork, StationCommandsShowWhatTheStationSays) {
  const std::string list = station_.PutList("1.gz", "<kuid:1:1> scenery 2.9 Far away\n");
  station_.SetAnswer("RecordManager/client.php", "timestamp \"t1\"\nfiles {\n0 \"" + list + "\"\n}\n");
  station_.SetAnswer("FCT.php", "tickets {\n0 {\ntype FCT\nrem 2\n}\n}\n");
  station_.SetAnswerTo("profile_details.php", "77",
                       "0 {\nresult {\nprofileid 5\nuserid 77\nusername \"Wilma\"\n}\n}\n");
  station_.SetAnswerTo("asset_description.php", kCrane, "A crane\x1b[2J.");
  station_.SetAnswerTo("asset_thumbnail.php", kCrane, "picture");

  int code = -1;
  const rapidjson::Document update = place_.Json(AtStation({"station", "update"}), code);
  EXPECT_EQ(code, 0);
  EXPECT_STREQ(update["last_file"].GetString(), "t1");
  EXPECT_EQ(update["queued"].Size(), 0U);
  EXPECT_NE(place_.Host({"list", "--name", "Far away"}).out.find("eiaDlme"), std::string::npos);
  EXPECT_EQ(place_.Host({"station", "ticket"}).out, "active, 172800 seconds left\n");
  EXPECT_EQ(place_.Host(AtStation({"station", "author", "77"})).out, "Wilma\n");
  EXPECT_EQ(place_.Host(AtStation({"station", "description", kCrane})).out, "A crane\\x1B[2J.\n");
  const std::string picture = place_ / "picture.jpg";
  EXPECT_EQ(place_.Host(AtStation({"station", "thumbnail", kCrane, "-o", picture})).code, 0);
  EXPECT_EQ(ReadFile(picture), "picture");

  const ToolResult missing = place_.Host(AtStation({"station", "description", "<kuid:1:2>"}));
  EXPECT_EQ(missing.code, 4);
  EXPECT_NE(missing.err.find("status 404"), std::string::npos) << missing.err;
}

TEST_F(HostNetwork, UploadsOwnAssetsAlone) {
  place_.Install("water_crane", kCrane);
  const ToolResult foreign = place_.Host(AtStation({"upload", kCrane}));
  EXPECT_EQ(foreign.code, 4);
  EXPECT_EQ(station_.Uploaded("UL_File"), "");

  WriteFile(place_ / "settings/kuid.txt", "base-kuid <kuid:523841:5000>\n");
  const ToolResult own = place_.Host(AtStation({"upload", kCrane}));
  EXPECT_EQ(own.code, 0) << own.out << own.err;
  WriteFile(place_ / "sent.cdp", station_.Uploaded("UL_File"));
  EXPECT_EQ(place_.Host({"package", "verify", place_ / "sent.cdp"}).code, 0);
}

TEST_F(HostNetwork, FetchesOnlyFromThoseWhoCanShowWhoTheyAre) {
  const std::string url = station_.PutList("valley.cdp", std::string(300000, 'v'));
  const std::string file = place_ / "fetched";
  const ToolResult untrusted = place_.Host({"fetch", url, "-o", file});
  EXPECT_EQ(untrusted.code, 4);
  EXPECT_NE(untrusted.err.find("certificate"), std::string::npos) << untrusted.err;

  int code = -1;
  const rapidjson::Document fetched = place_.Json({"fetch", url, "-o", file, "--insecure"}, code);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(fetched["size"].GetInt64(), 300000);
  EXPECT_EQ(ReadFile(file), std::string(300000, 'v'));
  EXPECT_EQ(place_.Host({"fetch", "no address", "-o", file}).code, 2);
  EXPECT_EQ(ReadFile(file).size(), 300000U);
}

}  // namespace
