#include "net/station/download_station.h"

#include <chrono>
#include <optional>
#include <thread>

#include "database/catalogue/author_names.h"
#include "engine/time.h"
#include "net/station/service_urls.h"
#include "tests/net/hostile_peer.h"
#include "tests/net/station_server.h"
#include "tests/station/station_fixture.h"

namespace morvex {
namespace {

class DownloadStationTest : public StationTest {
 protected:
  DownloadStationTest() { Connect(); }

  void Connect() {
    client_.reset();
    downloads_.reset();
    downloads_.emplace(Path("cache/internet"));
    DownloadSettings settings;
    settings.webServer = {"localhost", server_.Port()};
    settings.username = "me";
    settings.password = "secret";
    downloads_->SetSettings(settings);
    client_.emplace(*downloads_);
  }
  // Goes on until nothing is left to do or something went wrong, which it gives.
  std::string Run(double now) {
    for (int i = 0; i < 1000 && !client_->IsDone(); ++i) {
      EXPECT_TRUE(client_->Idle(now));
      const std::string failures = client_->TakeFailures();
      if (!failures.empty()) return failures;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return client_->IsDone() ? "" : "still busy";
  }
  void AnswerSearch(const std::string& files) {
    server_.SetAnswer("RecordManager/client.php", "timestamp \"t1\"\nfiles {\n" + files + "}\n");
    server_.SetAnswer("FCT.php", "tickets {\n0 {\ntype FCT\nsuspended 1\ninfinite 1\n}\n}\n");
  }

  StationServer server_;
  std::optional<DownloadManager> downloads_;
  std::optional<ZEBDownloadStation> client_;
};

TEST_F(DownloadStationTest, UpdatesTheCatalogue) {
  const std::string first = server_.PutList("1.gz", Gzip("<kuid:1:1> scenery 2.9 One\n"));
  const std::string second =
      server_.PutList("2.gz", Gzip("<kuid:1:1> map 1.0 Two\n<kuid:1:2> map 2.9 Two\n"));
  AnswerSearch("0 \"" + first + "\"\n1 \"" + second + "\"\n2 \"" + first + "\"\n");
  State().lastReceivedFile = "t0";
  EXPECT_FALSE(client_->RequestUpdate());
  EXPECT_EQ(Run(1), "");
  EXPECT_EQ(Shown(KUID(1, 1, 0)), "One|SY;SCEN|29|D");
  EXPECT_EQ(Shown(KUID(1, 2, 0)), "Two|RT|29|D");
  EXPECT_NE(server_.Requests().find("client.php?LASTRECEIVEDFILE=t0 HTTP"), std::string::npos);
  EXPECT_EQ(State().ticketState, DownloadStationState::kSuspended);
  EXPECT_EQ(State().ticketSeconds, 86400000.0F);

  // It lasts, and the next search waits.
  client_.reset();
  Stop();
  Start();
  client_.emplace(*downloads_);
  EXPECT_EQ(Shown(KUID(1, 2, 0)), "Two|RT|29|D");
  EXPECT_EQ(State().lastReceivedFile, "t1");
  const std::string before = server_.Requests();
  client_->RequestUpdate();
  EXPECT_EQ(Run(1), "");
  EXPECT_EQ(server_.Requests(), before);
  State().lastUpdateTime = Nox::TimeStamp() - ZEBDownloadStation::kSecondsBetweenSearches + 60;
  EXPECT_TRUE(client_->IsTooSoon());
  State().lastUpdateTime -= 60;
  EXPECT_FALSE(client_->IsTooSoon());
}

TEST_F(DownloadStationTest, TriesFailedListsAgainInOrder) {
  const std::string list = server_.PutList("1.gz", Gzip("<kuid:1:1> scenery 2.9 One\n"));
  const std::string missing = list + "-missing";
  AnswerSearch("0 \"" + missing + "\"\n1 \"" + list + "\"\n");
  client_->RequestUpdate();
  EXPECT_NE(Run(10).find("404"), std::string::npos);
  EXPECT_EQ(State().queuedUrls, (std::vector<std::string>{missing, list}));
  const std::string before = server_.Requests();
  EXPECT_TRUE(client_->Idle(129));
  EXPECT_EQ(client_->ListTask(), nullptr);
  server_.PutList("1.gz-missing", Gzip("<kuid:1:3> scenery 2.9 Three\n"));
  EXPECT_EQ(Run(131), "");
  EXPECT_EQ(Shown(KUID(1, 3, 0)), "Three|SY;SCEN|29|D");
  EXPECT_EQ(Shown(KUID(1, 1, 0)), "One|SY;SCEN|29|D");
}

TEST_F(DownloadStationTest, DamagedListsAreToldAndNotKept) {
  const std::string whole = Gzip("<kuid:1:1> scenery 2.9 One\n");
  const std::string url = server_.PutList("1.gz", whole.substr(0, whole.size() - 4));
  State().queuedUrls = {url};
  EXPECT_NE(Run(1).find(url), std::string::npos);
  EXPECT_TRUE(State().queuedUrls.empty());
  server_.PutList("1.gz", whole);
  State().queuedUrls = {url};
  EXPECT_EQ(Run(1), "");
  EXPECT_EQ(Shown(KUID(1, 1, 0)), "One|SY;SCEN|29|D");
}

TEST_F(DownloadStationTest, FailedSearchesAreTriedAgain) {
  client_->RequestUpdate();
  EXPECT_NE(Run(10), "");  // there is no answer yet
  for (int i = 0; i < 1000 && client_->SearchTask() != nullptr; ++i) {
    client_->Idle(10);
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  AnswerSearch("");
  EXPECT_TRUE(client_->Idle(100));
  EXPECT_EQ(client_->SearchTask(), nullptr);
  EXPECT_EQ(State().lastReceivedFile, "");
  Run(131);  // may yet tell of the ticket, which failed beside the search
  EXPECT_EQ(Run(131), "");
  EXPECT_EQ(State().lastReceivedFile, "t1");
}

TEST_F(DownloadStationTest, BadAnswersChangeNothing) {
  State().ticketState = DownloadStationState::kActive;
  EXPECT_FALSE(client_->ParseSearchResults(File("<html>"), "x"));
  EXPECT_EQ(State().lastUpdateTime, 0U);
  EXPECT_FALSE(client_->ParseFirstClassTicketResult(File("error \"no\""), "x"));
  EXPECT_EQ(State().ticketState, DownloadStationState::kActive);
  EXPECT_TRUE(client_->ParseFirstClassTicketResult(File("tickets {\n0 {\ntype FCT\nrem 2\n}\n}\n"), "x"));
  EXPECT_EQ(State().ticketSeconds, 172800.0F);
  EXPECT_TRUE(client_->ParseFirstClassTicketResult(File("tickets { }"), "x"));
  EXPECT_EQ(State().ticketState, DownloadStationState::kNoTicket);
  EXPECT_EQ(State().ticketSeconds, 0.0F);
}

TEST_F(DownloadStationTest, FetchesNamesOfAuthors) {
  server_.SetAnswerTo("profile_details.php", "17",
                      "0 {\nresult {\nprofileid 5\nuserid 17\nusername Ann\n}\n}\n");
  server_.SetAnswerTo("profile_details.php", "18", "error \"unknown\"");
  EXPECT_EQ(ZEBAuthorName(17).View(), "#17");
  EXPECT_EQ(ZEBAuthorName(18).View(), "#18");
  EXPECT_EQ(Run(1), "");
  EXPECT_EQ(ZEBAuthorName(17).View(), "Ann");
  EXPECT_EQ(ZEBAuthorName(18).View(), "#18");
  const std::string before = server_.Requests();
  EXPECT_EQ(Run(1), "");
  EXPECT_EQ(server_.Requests(), before) << "nobody is asked for twice";
}

TEST_F(DownloadStationTest, WaitsForNobody) {
  HostilePeer silent([](PeerSocket& peer) { peer.Stall(); });
  State().queuedUrls = {"http://127.0.0.1:" + std::to_string(silent.Port()) + "/list.gz"};
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(client_->Idle(1));
  EXPECT_NE(client_->ListTask(), nullptr);
  EXPECT_TRUE(client_->Idle(2));
  {
    // While somebody else has the database, nothing happens.
    std::thread([&] {
      const ZEBAssetLock lock(false);
      std::thread([&] { EXPECT_FALSE(client_->Idle(3)); }).join();
    }).join();
  }
  client_->Close();
  EXPECT_EQ(client_->ListTask(), nullptr);
  Connect();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(State().queuedUrls.size(), 1U);
}

}  // namespace
}  // namespace morvex
