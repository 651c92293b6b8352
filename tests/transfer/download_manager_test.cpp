// Downloads from nginx, vsftpd and tinyproxy, and from peers that fail.

#include "net/transfer/download_manager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <optional>
#include <thread>
#include <vector>

#include "net/transfer/network_settings.h"
#include "tests/net/hostile_peer.h"
#include "tests/net/test_servers.h"

namespace morvex {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::seconds;
using Clock = std::chrono::steady_clock;

constexpr const char* kLocations = R"(
  location = /moved { return 302 /plain.bin; }
  location = /moved-twice { return 302 /moved; }
  location = /elsewhere { return 301 http://127.0.0.1:@PORT@/plain.bin; }
  location = /loop { return 302 /loop; }
  location = /to-file { return 302 file://morvex/cache/internet/x; }
  location = /to-login { return 302 qslogin://; }
  location = /empty { return 200; }
  location = /slow.bin { limit_rate 20k; root @DIR@/served; }
  location = /status { stub_status; }
  location = /post { client_body_in_file_only on; proxy_pass http://127.0.0.1:@PORT@/posted; }
  location = /posted { return 200 "thanks"; }
  location = /post-moved { return 302 /plain.bin; }
  location = /private { return 200 "[$http_cookie]"; }
  location = /quasmere/imorvex/remote_login.php {
    add_header Set-Cookie "session=1";
    if ($arg_password = "secret") { return 200 'cookie "sid=abc"\n'; }
    return 200 'error "no"\n';
  }
)";

class DownloadTest : public testing::Test {
 protected:
  DownloadTest() { Restart(); }
  ~DownloadTest() override { SetNetworkSettings({}); }

  void Restart() {
    manager_.reset();
    manager_ = std::make_unique<DownloadManager>(folder_);
  }
  // The body of a URL, or '!' and the number of the error.
  std::string Fetch(const URL& url, std::uint32_t flags = 0) {
    return ResultOf(manager_->RequestDownload(url, flags));
  }
  std::string ResultOf(const DownloadHandle& task) {
    EXPECT_TRUE(task->WaitUntilFinished(seconds(60)));
    std::string path;
    if (task->GetResult(path, name_)) return GetText(path);
    failure_ = task->GetFailureText();
    return "!" + std::to_string(static_cast<std::uint32_t>(task->GetError()));
  }
  // The names in the cache folder but the index.
  std::size_t FileCount() const {
    std::size_t count = 0;
    for (const auto& file : fs::directory_iterator(folder_))
      count += file.path().filename() != "cachefile.txt" ? 1 : 0;
    return count;
  }
  void WaitForBytes(const DownloadHandle& task) {
    for (int i = 0; i < 500 && task->GetBytesReceived() == 0; ++i)
      std::this_thread::sleep_for(milliseconds(10));
  }

  const ScratchFolder scratch_;
  const std::string folder_ = scratch_ / "cache/internet";
  std::unique_ptr<DownloadManager> manager_;
  Nox::PString name_;
  std::string failure_;
};

class NginxDownloadTest : public DownloadTest {
 protected:
  NginxDownloadTest() { server_.Put("plain.bin", "plain content"); }

  URL Url(const std::string& path, bool tls = false) const {
    return URL((tls ? "https://localhost:" : "http://localhost:") +
               std::to_string(tls ? server_.TlsPort() : server_.Port()) + path);
  }
  std::size_t RequestCount() const {
    const std::string requests = server_.Requests();
    return static_cast<std::size_t>(std::count(requests.begin(), requests.end(), '\n'));
  }
  void SetLogin(const std::string& password) {
    DownloadSettings settings;
    settings.webServer = {"localhost", server_.TlsPort()};
    settings.username = "me";
    settings.password = password;
    manager_->SetSettings(settings);
  }

  NginxServer server_{kLocations};
};

TEST_F(NginxDownloadTest, AnswersFromItsCache) {
  const URL url = Url("/plain.bin");
  EXPECT_EQ(Fetch(url), "plain content");
  EXPECT_EQ(name_.View(), "plain.bin");
  EXPECT_EQ(Fetch(url), "plain content");  // by the finished task
  Restart();
  EXPECT_EQ(Fetch(url), "plain content");  // by the index
  EXPECT_EQ(RequestCount(), 1U);

  server_.Put("plain.bin", "new content");
  EXPECT_EQ(Fetch(url, kDownloadAnew), "new content");
  EXPECT_EQ(FileCount(), 0U);  // nothing is kept of it
  EXPECT_EQ(Fetch(url, kDownloadUncached), "new content");
  EXPECT_EQ(Fetch(url), "new content");
  EXPECT_EQ(RequestCount(), 4U);
  manager_->RemoveFromCache(url);
  server_.Put("plain.bin", "third content");
  EXPECT_EQ(Fetch(url), "third content");
}

TEST_F(NginxDownloadTest, QueriesAndFailuresArentKept) {
  for (int times = 0; times < 2; ++times) {
    EXPECT_EQ(Fetch(Url("/plain.bin?a=1")), "plain content");
    EXPECT_EQ(Fetch(Url("/missing")), "!7");
    EXPECT_EQ(failure_, "the server answered with status 404");
    EXPECT_EQ(Fetch(Url("/empty")), "!0");
  }
  EXPECT_EQ(RequestCount(), 6U);
  Restart();
  EXPECT_EQ(FileCount(), 0U);
}

TEST_F(NginxDownloadTest, FollowsRedirectsInTheNetworkAlone) {
  const std::string thisPort = std::to_string(server_.Port());
  for (const bool tls : {false, true}) {
    EXPECT_EQ(Fetch(Url("/moved", tls)), "plain content");
    EXPECT_EQ(Fetch(Url("/moved-twice", tls)), "plain content");
    EXPECT_EQ(Fetch(Url("/elsewhere", tls)), "plain content");
    for (const char* path : {"/loop", "/to-file", "/to-login"}) {
      EXPECT_EQ(Fetch(Url(path, tls)), "!7") << path;
      EXPECT_NE(failure_.find("is not followed"), std::string::npos) << failure_;
    }
  }
}

TEST_F(NginxDownloadTest, PostsForms) {
  TagContainer form;
  form.SetString(Nox::PString("field"), "value");
  for (const bool tls : {false, true}) {
    EXPECT_EQ(ResultOf(manager_->PostData(Url("/post", tls), form)), "thanks");
    EXPECT_EQ(ResultOf(manager_->PostData(Url("/post-moved", tls), form)), "plain content");
  }
  EXPECT_EQ(Fetch(Url("/post")), "thanks");  // no answer to a form is taken for that of a page
  EXPECT_EQ(server_.Requests().find("POST " + Url("/plain.bin").PathAndQuery()), std::string::npos);
}

TEST_F(NginxDownloadTest, TenRunAtOnce) {
  server_.Put("slow.bin", std::string(200000, 'x'));
  std::vector<DownloadHandle> tasks;
  for (int i = 0; i < 15; ++i)
    tasks.push_back(manager_->RequestDownload(Url("/slow.bin?" + std::to_string(i))));
  int most = 0;
  for (int i = 0; i < 10; ++i) {
    std::this_thread::sleep_for(milliseconds(50));
    DownloadManager other(folder_);
    const DownloadHandle status = other.RequestDownload(Url("/status"), kDownloadUncached);
    const std::string text = ResultOf(status);
    most = std::max(most, std::atoi(text.substr(text.find(':') + 1).c_str()) - 1);
  }
  EXPECT_EQ(most, 10);
  const auto start = Clock::now();
  for (const DownloadHandle& task : tasks)
    task->Cancel();
  for (const DownloadHandle& task : tasks)
    EXPECT_EQ(ResultOf(task), "!5");
  EXPECT_LT(Clock::now() - start, seconds(5));
}

TEST_F(NginxDownloadTest, OneTaskServesAllWhoAsk) {
  server_.Put("slow.bin", std::string(100000, 'x'));
  DownloadHandle first = manager_->RequestDownload(Url("/slow.bin"));
  DownloadHandle second = manager_->RequestDownload(Url("/slow.bin"));
  EXPECT_EQ(&*first, &*second);
  WaitForBytes(first);
  EXPECT_EQ(first->GetTotalBytes(), 100000U);
  EXPECT_GT(first->GetProgress(), 0.0F);
  EXPECT_LT(first->GetProgress(), 1.0F);
  first.Release();
  EXPECT_FALSE(second->IsFinished());
  EXPECT_EQ(second->GetError(), NetError::kNone);

  // What nobody holds is cancelled, and makes way for the next one that asks.
  second.Release();
  DownloadHandle third = manager_->RequestDownload(Url("/slow.bin"));
  third->Cancel();
  EXPECT_EQ(ResultOf(third), "!5");
  DownloadHandle fourth = manager_->RequestDownload(Url("/slow.bin"));  // beside the one that is still held
  EXPECT_NE(&*third, &*fourth);
  third.Release();
  WaitForBytes(fourth);
  EXPECT_GT(fourth->GetBytesReceived(), 0U);
}

TEST_F(NginxDownloadTest, MayBeUsedByManyThreads) {
  server_.Put("slow.bin", std::string(30000, 'x'));
  std::atomic<int> whole = 0;
  const auto work = [&](int seed) {
    for (int i = seed; i < seed + 25; ++i) {
      const bool slow = i % 3 == 0;
      const URL url = Url((slow ? "/slow.bin?" : "/plain.bin?") + std::to_string(i % 7), i % 5 == 0);
      const DownloadHandle task =
          manager_->RequestDownload(i % 2 == 0 ? url : Url("/plain.bin"), i % 4 == 1 ? 2 : 0);
      if (i % 6 == 0) task->Cancel();
      if (i % 8 == 0) manager_->RemoveFromCache(Url("/plain.bin"));
      if (slow) continue;  // let go while it runs
      task->WaitUntilFinished(seconds(30));
      std::string path;
      Nox::PString name;
      if (task->GetResult(path, name) && GetText(path) == "plain content") ++whole;
      manager_->SetHttpProxy("", 0);
      manager_->Idle();
    }
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 6; ++i)
    threads.emplace_back(work, i * 3);
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_GT(whole, 60);
  Restart();
  EXPECT_LE(FileCount(), 1U);
}

TEST_F(NginxDownloadTest, LogsInAtTheWebServerAlone) {
  EXPECT_EQ(Fetch(Url("/private", true)), "[]");
  SetLogin("");
  EXPECT_EQ(Fetch(URL("qslogin://")), "!3");
  EXPECT_EQ(server_.Requests().find("remote_login"), std::string::npos);

  SetLogin("wrong");
  EXPECT_EQ(Fetch(URL("qslogin://")), "!3");
  EXPECT_EQ(Fetch(Url("/private?1", true)), "[]");

  SetLogin("secret");
  std::vector<DownloadHandle> tasks;
  for (int i = 0; i < 4; ++i)
    tasks.push_back(manager_->RequestDownload(Url("/private?" + std::to_string(i), true)));
  for (const DownloadHandle& task : tasks)
    EXPECT_EQ(ResultOf(task), "[session=1;sid=abc]");
  EXPECT_EQ(Fetch(Url("/private?4", false)), "[]");
  URL otherName = Url("/private", true);
  otherName.host.Set("127.0.0.1");
  EXPECT_EQ(Fetch(otherName), "[]");
  const std::string requests = server_.Requests();
  const std::string login =
      "GET http://localhost/quasmere/imorvex/remote_login.php?username=me&password=secret&"
      "screenwidth=1024&language=EN HTTP/1.1\n";
  const std::size_t at = requests.find(login);
  ASSERT_NE(at, std::string::npos) << requests;
  EXPECT_EQ(requests.find(login, at + 1), std::string::npos) << "one login serves all";
  for (const auto& file : fs::directory_iterator(folder_))
    EXPECT_EQ(GetText(file.path()).find("cookie"), std::string::npos) << file.path();
}

TEST_F(NginxDownloadTest, GoesThroughProxies) {
  {
    const ProxyServer proxy;
    manager_->SetHttpProxy("127.0.0.1", proxy.Port());
    for (const bool tls : {false, true})
      EXPECT_EQ(Fetch(Url("/plain.bin", tls)), "plain content");
    EXPECT_NE(proxy.Log().find("CONNECT localhost:" + std::to_string(server_.TlsPort())), std::string::npos);
    EXPECT_NE(proxy.Log().find("GET " + Url("/plain.bin").ToString()), std::string::npos);
  }
  const FreePort nobody;
  manager_->SetHttpProxy("127.0.0.1", nobody.Number());
  for (const bool tls : {false, true})
    EXPECT_EQ(Fetch(Url("/plain.bin", tls), kDownloadUncached | kDownloadAnew), "!1");
  manager_->SetHttpProxy("", 0);
  manager_->SetFtpProxy("127.0.0.1", server_.Port());
  EXPECT_EQ(Fetch(URL("ftp://localhost/plain.bin")), "plain content");
  EXPECT_NE(server_.Requests().find("GET ftp://localhost/plain.bin HTTP/1.1\n"), std::string::npos);
}

TEST_F(DownloadTest, LocalAddressesLeadIntoTheCache) {
  URL stored;
  const std::uint8_t bytes[] = {'d', 'a', 't', 'a'};
  ASSERT_TRUE(manager_->StoreInCache(bytes, stored));
  EXPECT_TRUE(stored.ToString().starts_with("file://morvex/cache/internet/"));
  EXPECT_TRUE(stored.ToString().ends_with(".dat"));
  EXPECT_EQ(Fetch(stored), "data");
  EXPECT_EQ(Fetch(stored, kDownloadAnew), "data");
  EXPECT_EQ(Fetch(stored), "data");

  PutText(folder_ + "/empty.dat", "");
  PutText(scratch_ / "outside", "x");
  DownloadSettings settings;
  settings.localFiles = [this](std::string_view path) -> std::optional<std::string> {
    return path == "/help" ? std::optional(scratch_ / "outside") : std::nullopt;
  };
  manager_->SetSettings(settings);
  for (const char* url : {"file://morvex/cache/internet/empty.dat", "file://morvex/cache/internet/none.dat",
                          "file://morvex/cache/internet/../../outside", "file://morvex/cache/outside",
                          "file://morvex/cache/internet/cachefile.txt", "file://other/help", "file:///help",
                          "file://morvex/other"}) {
    EXPECT_EQ(Fetch(URL(url)), "!4") << url;
  }
  EXPECT_EQ(Fetch(URL("file://MORVEX/help")), "x");
  manager_->RemoveFromCache(URL("file://morvex/help"));
  EXPECT_EQ(GetText(scratch_ / "outside"), "x");
}

TEST_F(DownloadTest, FetchesByFtpAndGoesOnWhereItStopped) {
  FtpServer server;
  const std::string content = std::string(100000, 'a') + std::string(100000, 'b');
  server.Put("large.bin", content);
  server.Put("other.bin", "other");
  const URL url("ftp://127.0.0.1:" + std::to_string(server.Port()) + "/large.bin");

  // As a run leaves it that was stopped: the part that is there isn't fetched again.
  manager_.reset();
  PutText(folder_ + "/part.bin", std::string(100000, 'c'));
  PutText(folder_ + "/cachefile.txt", url.ToString() + " {\ncachefilename \"part.bin\"\ndatedownloaded " +
                                          std::to_string(time(nullptr)) +
                                          "\ncachestate 0\ncachefilesize 100000\n}\n");
  Restart();
  EXPECT_TRUE(Fetch(url) == std::string(100000, 'c') + std::string(100000, 'b')) << failure_;
  Restart();
  EXPECT_TRUE(Fetch(url) == std::string(100000, 'c') + std::string(100000, 'b')) << "now from the cache";
  manager_->RemoveFromCache(url);
  EXPECT_TRUE(Fetch(url) == content);

  URL refused = url;
  refused.user.Set("anonymous");
  refused.password.Set("refused");
  EXPECT_EQ(Fetch(refused), "!3");
  URL missing = url;
  missing.SetPath("/missing.bin");
  EXPECT_EQ(Fetch(missing), "!7");
  EXPECT_TRUE(failure_.starts_with("550")) << failure_;
}

TEST_F(DownloadTest, PartsThatFtpBroughtAreKept) {
  // A control connection that announces a file of 10 bytes and a data connection that ends after 4.
  HostilePeer data([](PeerSocket& peer) { peer.Send("1234"); });
  HostilePeer control([&](PeerSocket& peer) {
    peer.Send("220 Hello\r\n331 Password\r\n230 In\r\n");
    peer.ReadUpTo("size f\r\n");
    const int port = data.Port();
    peer.Send("200 Binary\r\n227 Passive (127,0,0,1," + std::to_string(port / 256) + "," +
              std::to_string(port % 256) + ")\r\n213 10\r\n150 Here it comes\r\n");
    peer.Stall();
  });
  const URL url("ftp://127.0.0.1:" + std::to_string(control.Port()) + "/f");
  EXPECT_EQ(Fetch(url), "!7");
  Restart();
  const std::string index = GetText(folder_ + "/cachefile.txt");
  EXPECT_NE(index.find("cachestate"), std::string::npos) << index;
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(DownloadTest, UsesIdleConnectionsAndSurvivesTheirEnd) {
  // Serves two requests over one connection, then drops the third without a word.
  std::atomic<int> requests = 0;
  HostilePeer peer([&](PeerSocket& connection) {
    for (int i = 0; i < 3;) {
      const std::string request = connection.ReadUpTo("\r\n\r\n");
      if (request.empty()) return;
      if (request == "\r\n\r\n") continue;  // a probe
      ++requests;
      if (++i == 3) return;
      connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok");
    }
  });
  for (int i = 0; i < 4; ++i)
    EXPECT_EQ(Fetch(URL("http://127.0.0.1:" + std::to_string(peer.Port()) + "/" + std::to_string(i))), "ok");
  EXPECT_EQ(peer.Connections(), 2);
  EXPECT_EQ(requests, 5);
}

TEST_F(DownloadTest, APeerThatGoesAwayAtAnyByteLeavesNothing) {
  const std::string answer =
      "HTTP/1.1 200 OK\r\nContent-Length: 20\r\nTransfer-Encoding: "
      "chunked\r\n\r\na\r\n0123456789\r\n0\r\n\r\n";
  std::atomic<std::size_t> size = 0;
  std::atomic<bool> resets = false;
  HostilePeer peer([&](PeerSocket& connection) {
    connection.ReadUpTo("\r\n\r\n");
    connection.Send(answer.substr(0, size));
    if (resets) connection.Reset();
  });
  const std::string address = "http://127.0.0.1:" + std::to_string(peer.Port()) + "/";
  for (const bool reset : {false, true}) {
    resets = reset;
    for (size = 0; size < answer.size() - 2; ++size) {
      EXPECT_EQ(Fetch(URL(address + std::to_string(size))), "!7") << size;
      EXPECT_FALSE(failure_.empty());
    }
  }
  resets = false;
  size = answer.size();
  EXPECT_EQ(Fetch(URL(address)), "0123456789");
  EXPECT_EQ(FileCount(), 1U);
  Restart();
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(DownloadTest, AStalledPeerEndsWithTheTimeOrACancel) {
  HostilePeer peer([](PeerSocket& connection) {
    connection.ReadUpTo("\r\n\r\n");
    connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n12");
    connection.Stall();
  });
  const std::string address = "http://127.0.0.1:" + std::to_string(peer.Port()) + "/";
  const auto start = Clock::now();
  {
    const DownloadHandle task = manager_->RequestDownload(URL(address));
    WaitForBytes(task);
    task->Cancel();
    EXPECT_EQ(ResultOf(task), "!5");
  }
  {
    const DownloadHandle task = manager_->RequestDownload(URL(address + "held"));
    WaitForBytes(task);
  }
  manager_.reset();  // doesn't wait for the peer either
  EXPECT_LT(Clock::now() - start, seconds(10));
  NetworkSettings settings;
  settings.timeout = milliseconds(200);
  SetNetworkSettings(settings);
  Restart();
  EXPECT_EQ(Fetch(URL(address + "2")), "!7");
}

TEST_F(DownloadTest, NothingIsSentForOddAddresses) {
  EXPECT_EQ(Fetch(URL("gopher://h/x")), "!2");
  EXPECT_EQ(Fetch(URL("http:///x")), "!2");
  HostilePeer peer(HostilePeer::Answer("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\nx"));
  const std::string address = "http://127.0.0.1:" + std::to_string(peer.Port());
  EXPECT_EQ(Fetch(URL(address + "/a\r\nHost: other")), "!7");
  // Whatever an address ends in, its file lies in the folder.
  for (const char* path :
       {"/x.tar/../../../etc/passwd", "/a.b/c", "/x..", "/x.verylongextensionthatisnone", "/x.%2e"})
    EXPECT_EQ(Fetch(URL(address + path)), "x") << path;
  for (const auto& file : fs::directory_iterator(folder_))
    EXPECT_TRUE(file.path().filename() == "cachefile.txt" || file.path().extension().empty()) << file.path();
}

}  // namespace
}  // namespace morvex
