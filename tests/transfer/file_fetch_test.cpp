// Downloads to places of the caller's: what is left of one that was cut, and how the next one goes on with it.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "net/transfer/download_manager.h"
#include "net/transfer/network_settings.h"
#include "net/transfer/tcp_transport.h"
#include "tests/net/hostile_peer.h"
#include "tests/net/test_servers.h"

namespace morvex {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::seconds;

class FileFetchTest : public testing::Test {
 protected:
  ~FileFetchTest() override { SetNetworkSettings({}); }

  DownloadHandle Start(const URL& url, std::uint32_t flags = 0) {
    return manager_.DownloadToFile(url, target_, flags);
  }
  // The number of the error, 0 if the file is there; says from where it went on.
  std::uint32_t Fetch(const URL& url, std::uint32_t flags = 0) { return ResultOf(Start(url, flags)); }
  std::uint32_t ResultOf(const DownloadHandle& task) {
    EXPECT_TRUE(task->WaitUntilFinished(seconds(60)));
    resumedFrom_ = task->GetResumedFrom();
    failure_ = task->GetFailureText();
    std::string path;
    Nox::PString name;
    EXPECT_EQ(task->GetResult(path, name), task->GetError() == NetError::kNone);
    return static_cast<std::uint32_t>(task->GetError());
  }
  static void WaitForBytes(const DownloadHandle& task, std::uint64_t count) {
    while (!task->IsFinished() && task->GetBytesReceived() < count)
      std::this_thread::sleep_for(milliseconds(5));
  }
  void PutPart(const std::string& content, const std::string& note) {
    PutText(target_ + ".part", content);
    PutText(target_ + ".part.txt", note);
  }
  // The names beside the target.
  std::vector<std::string> Left() const {
    std::vector<std::string> names;
    for (const auto& file : fs::directory_iterator(folder_.path()))
      if (file.path() != target_) names.push_back(file.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  const std::vector<std::string> kNothing = {};
  const std::vector<std::string> kPart = {"target.part", "target.part.txt"};
  const ScratchFolder folder_;
  const std::string target_ = folder_ / "target";
  DownloadManager manager_;
  std::uint64_t resumedFrom_ = 0;
  std::string failure_;
};

class ServedFileTest : public FileFetchTest {
 protected:
  void Serve(const std::string& content) {
    nginx_.Put("file.bin", content);
    ftp_.Put("file.bin", content);
  }
  std::vector<URL> Urls() const {
    const std::string plain = "http://localhost:" + std::to_string(nginx_.Port());
    return {URL(plain + "/file.bin"), URL(plain + "/moved"),
            URL("https://localhost:" + std::to_string(nginx_.TlsPort()) + "/file.bin"),
            URL("ftp://127.0.0.1:" + std::to_string(ftp_.Port()) + "/file.bin")};
  }
  std::string VersionOf(const URL& url) const {
    if (url.HasScheme("ftp")) return "size " + std::to_string(fs::file_size(nginx_.Served() + "/file.bin"));
    HTTPConnection connection;
    connection.SetTransport(std::make_unique<TCPTransport>(Endpoint{"localhost", nginx_.Port()}));
    connection.SetHost("localhost");
    connection.SendGet(nullptr, "/file.bin");
    EXPECT_TRUE(connection.ReadResponseHeaders());
    return connection.Version();
  }

  NginxServer nginx_{"location = /moved { return 302 /file.bin; }"};
  FtpServer ftp_;
};

TEST_F(ServedFileTest, GoesOnWithItsBeginningAlone) {
  const std::string content = LargeText(700000, 1);
  const std::string old = LargeText(800000, 2);
  Serve(content);
  for (const URL& url : Urls()) {
    const std::string version = VersionOf(url);
    const std::string address = url.ToString() + "\n";
    const std::string note = address + version + "\n";
    const struct {
      std::string part, note;
      std::uint64_t resumedFrom;
      std::uint32_t flags = 0;
    } rows[] = {
        {content.substr(0, 1), note, 1},
        {content.substr(0, 300000), note, 300000},
        {content.substr(0, 699999), note, 699999},
        {content.substr(0, 300000), note, 0, kDownloadAnew},
        {old, note, 0},  // longer than the file
        {"", note, 0},
        // Of another version, of another file, of nothing known, cut itself.
        {old.substr(0, 300000), address + "\"another\"\n", 0},
        {old.substr(0, 300000), "http://localhost/other\n" + version + "\n", 0},
        {old.substr(0, 300000), address + "\n", 0},
        {old.substr(0, 300000), address + version, 0},
        {old.substr(0, 300000), address, 0},
        {old.substr(0, 300000), "", 0},
        {old.substr(0, 300000), note + note, 0},
    };
    for (const auto& row : rows) {
      PutText(target_, "what was there before");
      PutPart(row.part, row.note);
      EXPECT_EQ(Fetch(url, row.flags), 0U) << failure_;
      EXPECT_EQ(resumedFrom_, row.resumedFrom) << url.ToString() << ": " << row.note;
      EXPECT_TRUE(GetText(target_) == content) << url.ToString() << ": " << row.note;
      EXPECT_EQ(Left(), kNothing);
    }
  }
}

TEST_F(ServedFileTest, AFileThatChangedIsFetchedAnew) {
  for (const URL& url : Urls()) {
    const std::string old = LargeText(500000, 3);
    Serve(old);
    PutPart(old.substr(0, 300000), url.ToString() + "\n" + VersionOf(url) + "\n");
    const std::string content = LargeText(500001, 4);
    Serve(content);
    EXPECT_EQ(Fetch(url), 0U) << failure_;
    EXPECT_EQ(resumedFrom_, 0U);
    EXPECT_TRUE(GetText(target_) == content) << url.ToString();
  }
}

TEST_F(ServedFileTest, NotesNoPassword) {
  Serve("0123456789");
  URL url = Urls().back();
  url.user.Set("anonymous");
  const std::string asked = url.ToString();
  url.password.Set("secret");
  PutPart("01234", asked + "\nsize 10\n");
  EXPECT_EQ(Fetch(url), 0U) << failure_;
  EXPECT_EQ(resumedFrom_, 5U);
}

// A peer that answers one request a connection, each in its own way, and remembers what it was asked.
class ScriptedFileTest : public FileFetchTest {
 protected:
  using Answer = std::function<void(PeerSocket&)>;

  static Answer Say(const std::string& bytes) {
    return [bytes](PeerSocket& peer) { peer.Send(bytes); };
  }
  void SetAnswers(std::vector<Answer> answers) {
    const std::lock_guard guard(lock_);
    answers_ = std::move(answers);
    requests_.clear();
  }
  std::vector<std::string> Requests() {
    const std::lock_guard guard(lock_);
    return requests_;
  }
  URL Url() const { return URL("http://127.0.0.1:" + std::to_string(peer_.Port()) + "/f"); }
  std::string Note() const { return Url().ToString() + "\n\"v1\"\n"; }

 private:
  void Serve(PeerSocket& peer) {
    const std::string request = peer.ReadUpTo("\r\n\r\n");
    Answer answer;
    {
      const std::lock_guard guard(lock_);
      if (requests_.size() < answers_.size()) answer = answers_[requests_.size()];
      requests_.push_back(request);
    }
    if (answer) answer(peer);
  }

  std::mutex lock_;
  std::vector<Answer> answers_;
  std::vector<std::string> requests_;
  const HostilePeer peer_{[this](PeerSocket& peer) { Serve(peer); }};
};

constexpr const char* kWhole = "HTTP/1.1 200 OK\r\nETag: \"v2\"\r\nContent-Length: 10\r\n\r\n0123456789";
constexpr const char* kRest =
    "HTTP/1.1 206 Partial\r\nETag: \"v1\"\r\nContent-Range: bytes 5-9/10\r\nContent-Length: 5\r\n\r\n56789";

TEST_F(ScriptedFileTest, GoesOnWhereACutOrACancelEndedIt) {
  const std::string day = "Mon, 23 Nov 2026 08:45:54 GMT";
  const struct {
    std::string headers, version;
    bool cancels;
  } rows[] = {
      {"ETag: \"v1\"\r\n", "\"v1\"", false},
      {"ETag: \"v1\"\r\n", "\"v1\"", true},
      {"Last-Modified: " + day + "\r\n", day, false},
      {"ETag: W/\"v1\"\r\nLast-Modified: " + day + "\r\n", day, true},
      {"Last-Modified: " + day + "\r\nETag: \"v1\"\r\n", "\"v1\"", false},
  };
  for (const auto& row : rows) {
    PutText(target_, "what was there before");
    const auto half = [&](PeerSocket& peer) {
      peer.Send("HTTP/1.1 200 OK\r\n" + row.headers + "Content-Length: 10\r\n\r\n01234");
      if (row.cancels) peer.Stall();
    };
    SetAnswers({half, Say("HTTP/1.1 206 Partial\r\n" + row.headers +
                          "Content-Range: bytes 5-9/10\r\nContent-Length: 5\r\n\r\n56789")});
    DownloadHandle task = Start(Url());
    if (row.cancels) {
      WaitForBytes(task, 5);
      task->Cancel();
    }
    EXPECT_EQ(ResultOf(task), row.cancels ? 5U : 7U);
    task.Release();
    EXPECT_EQ(GetText(target_), "what was there before");
    EXPECT_EQ(Left(), kPart);
    EXPECT_EQ(GetText(target_ + ".part"), "01234");

    EXPECT_EQ(Fetch(Url()), 0U) << failure_;
    EXPECT_EQ(resumedFrom_, 5U);
    EXPECT_EQ(GetText(target_), "0123456789");
    EXPECT_EQ(Left(), kNothing);
    ASSERT_EQ(Requests().size(), 2U);
    EXPECT_EQ(Requests()[0].find("Range"), std::string::npos);
    EXPECT_TRUE(Requests()[1].ends_with(
        "Connection: Keep-Alive\r\nRange: bytes=5-\r\nIf-Range: " + row.version + "\r\n\r\n"))
        << Requests()[1];
  }
}

TEST_F(ScriptedFileTest, TrustsNoAnswerThatDoesNotFit) {
  const std::string partial = "HTTP/1.1 206 Partial\r\n";
  for (const std::string& answer : {
           partial + "Content-Range: bytes 4-9/10\r\nContent-Length: 6\r\n\r\nabcdef",
           partial + "Content-Range: bytes 0-9/10\r\nContent-Length: 10\r\n\r\nabcdefghij",
           partial + "Content-Range: bytes 5-8/10\r\nContent-Length: 4\r\n\r\nabcd",
           partial + "Content-Range: bytes 5-9/*\r\nContent-Length: 5\r\n\r\nabcde",
           partial + "Content-Range: bytes 5-10/10\r\nContent-Length: 6\r\n\r\nabcdef",
           partial + "Content-Range: bytes 5-9/10\r\nContent-Length: 6\r\n\r\nabcdef",
           partial + "Content-Range: bytes 5-9/10\r\nETag: \"v2\"\r\nContent-Length: 5\r\n\r\nabcde",
           partial + "Content-Range: bytes 5-4/5\r\nContent-Length: 0\r\n\r\n",
           partial + "Content-Range: bytes 5-9/10\r\n\r\nabcde",
           partial + "Content-Range: 5-9/10\r\nContent-Length: 5\r\n\r\nabcde",
           partial + "Content-Length: 5\r\n\r\nabcde",
           std::string("HTTP/1.1 416 No\r\nContent-Range: bytes */5\r\nContent-Length: 2\r\n\r\nno"),
           std::string("HTTP/1.1 416 No\r\n\r\n"),
       }) {
    PutPart("abcde", Note());
    SetAnswers({Say(answer), Say(kWhole)});
    EXPECT_EQ(Fetch(Url()), 0U) << answer << failure_;
    EXPECT_EQ(GetText(target_), "0123456789") << answer;
    EXPECT_EQ(resumedFrom_, 0U);
    ASSERT_EQ(Requests().size(), 2U);
    EXPECT_EQ(Requests()[1].find("Range"), std::string::npos);
    // Nor is it asked a second time.
    PutText(target_, "what was there before");
    PutPart("abcde", Note());
    SetAnswers({Say(answer), Say(answer), Say(kWhole)});
    EXPECT_EQ(Fetch(Url()), 7U);
    EXPECT_EQ(Requests().size(), 2U);
    EXPECT_EQ(GetText(target_), "what was there before");
  }

  PutPart("01234", Note());
  SetAnswers({Say(std::string(kRest) + " and more")});
  EXPECT_EQ(Fetch(Url()), 0U) << failure_;
  EXPECT_EQ(GetText(target_), "0123456789");
}

TEST_F(ScriptedFileTest, KeepsThePartWhenTheServerHasNothingForIt) {
  PutPart("01234", Note());
  SetAnswers({Say("HTTP/1.1 503 Later\r\nContent-Length: 5\r\n\r\nlater")});
  EXPECT_EQ(Fetch(Url()), 7U);
  EXPECT_EQ(GetText(target_ + ".part"), "01234");
  SetAnswers({Say(kRest)});
  EXPECT_EQ(Fetch(Url()), 0U) << failure_;
  EXPECT_EQ(GetText(target_), "0123456789");

  SetAnswers({Say("HTTP/1.1 404 No\r\n\r\n")});
  EXPECT_EQ(Fetch(Url()), 7U);
  EXPECT_EQ(Left(), kNothing);
  // A rest that is cut is gone on with, too; without a version nothing is.
  PutPart("012", Note());
  SetAnswers({Say("HTTP/1.1 206 Partial\r\nContent-Range: bytes 3-9/10\r\nContent-Length: 7\r\n\r\n34"),
              Say(kRest)});
  EXPECT_EQ(Fetch(Url()), 7U);
  EXPECT_EQ(Fetch(Url()), 0U) << failure_;
  EXPECT_EQ(GetText(target_), "0123456789");
  PutPart("01234", Note());
  SetAnswers({Say("HTTP/1.1 200 OK\r\nETag: W/\"v1\"\r\nContent-Length: 10\r\n\r\n01234"), Say(kWhole)});
  EXPECT_EQ(Fetch(Url()), 7U);
  EXPECT_EQ(Fetch(Url()), 0U) << failure_;
  EXPECT_EQ(Requests()[1].find("Range"), std::string::npos);
}

TEST_F(ScriptedFileTest, OneAtATimeAndOnlyPlainFiles) {
  SetAnswers({[](PeerSocket& peer) {
    peer.Send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n01234");
    peer.Stall();
  }});
  const DownloadHandle first = Start(Url());
  WaitForBytes(first, 5);
  DownloadManager others;
  const DownloadHandle second = others.DownloadToFile(Url(), target_);
  EXPECT_EQ(ResultOf(second), 4U);
  EXPECT_NE(failure_.find("another fetch"), std::string::npos) << failure_;
  first->Cancel();
  EXPECT_EQ(ResultOf(first), 5U);

  for (const std::string& place : {folder_.path(), std::string("/dev/null"), folder_ / "none/file"})
    EXPECT_EQ(ResultOf(manager_.DownloadToFile(Url(), place)), 4U) << place;
  EXPECT_EQ(ResultOf(manager_.RequestDownload(Url())), 4U) << "there is no cache";
}

}  // namespace
}  // namespace morvex
