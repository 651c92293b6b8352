#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "tests/host/host_run.h"
#include "tests/net/hostile_peer.h"
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

TEST_F(HostNetwork, AnUploadThatWaitsLetsOthersInAndCanBeBrokenOff) {
  place_.Install("water_crane", kCrane);
  WriteFile(place_ / "settings/kuid.txt", "base-kuid <kuid:523841:5000>\n");
  const HostilePeer peer([](PeerSocket& connection) { connection.Stall(); });
  const std::string server = "127.0.0.1:" + std::to_string(peer.Port());
  const int upload = place_.Start({"upload", kCrane, "--server", server, "--user", "me"}, "MorvexHost");
  while (peer.Connections() == 0) {
    ASSERT_EQ(waitpid(upload, nullptr, WNOHANG), 0) << "it ended without a connection";
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_EQ(place_.Host({"show", kCrane}).code, 0);
  kill(upload, SIGINT);
  int status = 0;
  waitpid(upload, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 130);
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
  EXPECT_EQ(fetched["resumed_from"].GetInt64(), 0);
  EXPECT_EQ(ReadFile(file), std::string(300000, 'v'));
  EXPECT_EQ(place_.Host({"fetch", "no address", "-o", file}).code, 2);
  EXPECT_EQ(ReadFile(file).size(), 300000U);
}

// Needs no installation, and none of what it has is touched.
TEST(HostFetch, GoesOnWhereItWasCut) {
  const HostInstallation place;
  std::atomic<int> connections = 0;
  const HostilePeer peer([&](PeerSocket& connection) {
    connection.ReadUpTo("\r\n\r\n");
    const std::string version = "ETag: \"v1\"\r\n";
    connection.Send(++connections == 1 ? "HTTP/1.1 200 OK\r\n" + version + "Content-Length: 10\r\n\r\n01234"
                                       : "HTTP/1.1 206 Partial\r\n" + version +
                                             "Content-Range: bytes 5-9/10\r\nContent-Length: 5\r\n\r\n56789");
  });
  const std::string url = "http://127.0.0.1:" + std::to_string(peer.Port()) + "/valley.cdp";
  const std::string file = place / "fetched";
  const std::vector<std::string> fetch = {"fetch", url, "-o", file, "--root", place / "none"};
  const ToolResult cut = place.Host(fetch);
  EXPECT_EQ(cut.code, 4);
  EXPECT_NE(cut.err.find("goes on"), std::string::npos) << cut.err;
  EXPECT_FALSE(std::filesystem::exists(file));

  int code = -1;
  const rapidjson::Document fetched = place.Json(fetch, code);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(fetched["size"].GetInt64(), 10);
  EXPECT_EQ(fetched["resumed_from"].GetInt64(), 5);
  EXPECT_EQ(ReadFile(file), "0123456789");
  EXPECT_FALSE(std::filesystem::exists(place / "cache/internet"));
}

}  // namespace
