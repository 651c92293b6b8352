#include "net/transfer/http_connection.h"

#include <gtest/gtest.h>

#include "net/transfer/network_settings.h"
#include "net/transfer/url.h"
#include "tests/net/memory_transport.h"
#include "tests/net/server_process.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

// A connection whose peer says `input`.
class HttpTest : public testing::Test {
 protected:
  void Say(std::string_view input, std::size_t pieceSize = 1 << 20) {
    requests_.clear();
    connection_.SetTransport(std::make_unique<MemoryTransport>(input, &requests_, pieceSize));
    connection_.SetHost("h");
    connection_.SendGet(nullptr, "%s", "/x");
  }
  // What a whole answer comes to: "status/body", with '!' where the body isn't whole.
  std::string Answer(std::string_view input, std::size_t pieceSize = 1 << 20) {
    Say(input, pieceSize);
    if (!connection_.ReadResponseHeaders()) return std::to_string(static_cast<int>(connection_.Status()));
    return std::to_string(static_cast<int>(connection_.Status())) + "/" + Body();
  }
  std::string Body() {
    const bool whole = connection_.ReadBody(file_);
    return GetText(file_) + (whole ? "" : "!");
  }

  const ScratchFolder scratch_;
  const std::string file_ = scratch_ / "body";
  std::string requests_;
  HTTPConnection connection_;
};

TEST_F(HttpTest, WritesAGet) {
  NetworkSettings settings;
  settings.applicationName = "Test";
  settings.applicationVersion = 7;
  SetNetworkSettings(settings);
  Say("");
  EXPECT_EQ(requests_,
            "GET /x HTTP/1.1\r\n"
            "User-Agent: Test/7 (XNR) Test/7\r\n"
            "Host: h\r\n"
            "Proxy-Connection: Keep-Alive\r\n"
            "Connection: Keep-Alive\r\n"
            "\r\n");
  SetNetworkSettings({});

  Say("");
  requests_.clear();
  connection_.StoreCookie("a", "1");
  connection_.StoreCookie("b", "2");
  connection_.SendGet("HTTPS", "/p?%s=%d", "q", 5);
  EXPECT_TRUE(requests_.starts_with("GET http://h/p?q=5 HTTP/1.1\r\n")) << requests_;
  EXPECT_TRUE(requests_.ends_with("Connection: Keep-Alive\r\nCookie: a=1;b=2\r\n\r\n")) << requests_;
  EXPECT_EQ(connection_.RequestPath(), "/p?q=5");
}

TEST_F(HttpTest, WritesAForm) {
  TagContainer file;
  const char bytes[] = {'\0', '\r', '\n', '%', 's'};
  file.SetRaw(Nox::PString("filedata"), ACSRawDataCore::CopyBytes(bytes, sizeof bytes));
  file.SetString(Nox::PString("filename"), "upload.cdp");
  TagContainer form;
  form.SetContainer(Nox::PString("UL_File"), file);
  form.SetString(Nox::PString("UL_LanguageID"), "EN");
  form.SetInt(Nox::PString("count"), 5);
  const std::string body = std::string(
                               "--1E3N2D4\r\n"
                               "content-disposition: form-data; name=\"UL_File\"; filename=\"upload.cdp\"\r\n"
                               "Content-type: application/binary\r\n"
                               "Content-Transfer-Encoding: binary\r\n"
                               "Content-Length: 5\r\n"
                               "\r\n") +
                           std::string(bytes, sizeof bytes) +
                           "\r\n"
                           "--1E3N2D4\r\n"
                           "content-disposition: form-data; name=\"UL_LanguageID\"\r\n"
                           "\r\n"
                           "EN\r\n"
                           "--1E3N2D4\r\n"
                           "content-disposition: form-data; name=\"count\"\r\n"
                           "\r\n"
                           "5\r\n"
                           "--1E3N2D4--\r\n";
  Say("");
  requests_.clear();
  connection_.StoreCookie("a", "1");
  connection_.SendPost(URL("https://h/up.php?x=1"), form);
  EXPECT_EQ(requests_,
            "POST /up.php?x=1 HTTP/1.1\r\n"
            "User-Agent: Morvex/1 (XNR) Morvex/1\r\n"
            "Host: h\r\n"
            "Connection: Close\r\n"
            "Content-type: multipart/form-data, boundary=1E3N2D4\r\n"
            "Cookie: a=1\r\n"
            "Content-length: " +
                std::to_string(body.size()) + "\r\n\r\n" + body);
  EXPECT_TRUE(connection_.ClosesAfterResponse());
}

TEST_F(HttpTest, SendsNothingThatWouldBeTwoRequests) {
  for (const std::string& path :
       {std::string("/x\r\nEvil: 1"), std::string("/\n"), std::string("/\r"), std::string("/a\0b", 4)}) {
    Say("HTTP/1.1 200 OK\r\n\r\nx");
    requests_.clear();
    connection_.SendGet(nullptr, "%s", path);
    EXPECT_EQ(requests_, "");
    EXPECT_FALSE(connection_.ReadResponseHeaders());
    EXPECT_EQ(connection_.Status(), HTTPStatus::kNoResponse);
  }
  TagContainer form;
  form.SetString(Nox::PString("a\"\r\nEvil: 1"), "x");
  Say("");
  requests_.clear();
  connection_.SendPost(URL("http://h/"), form);
  EXPECT_EQ(requests_, "");
}

// What comes of a whole answer, however its bytes arrive.
TEST_F(HttpTest, ReadsAnswers) {
  const struct {
    std::string input, result;
  } rows[] = {
      {"HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nabc", "0/abc"},
      {"http/1.0 200 OK\ncontent-length: 3\n\nabc", "0/abc"},
      {"HTTP/1.1 200 OK\rContent-Length: 3\r\rabc", "0/abc"},
      {"HTTP/1.1 200 OK\r\n\r\n\r\nto the end", "0/\r\nto the end"},
      {"HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", "0/!"},
      {"HTTP/1.1 204 None\r\n\r\nx", "0/!"},
      {"HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nab", "0/ab!"},
      {"HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nabcdef", "0/abc"},
      {"HTTP/1.1 302 Found\r\nLocation: /y\r\nContent-Length: 1\r\n\r\nx", "1/x"},
      {"HTTP/1.1 404 Not Found\r\n\r\n", "2"},
      {"HTTP/1.1 500 Broken\r\n\r\n", "2"},
      {"HTTP/1.1 200\r\n\r\nx", "2"},
      {"hello\r\n\r\n", "2"},
      {"\r\nHTTP/1.1 200 OK\r\n\r\nx", "3"},
      {"", "3"},
      {"HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\n\r\nx", "0/x"},
      {"HTTP/1.1 100\r\nLocation: /\r\n\r\nHTTP/1.1 404 No\r\n\r\nx", "2"},
      {"HTTP/1.1 200 OK\r\nContent-Length: 3\r\nContent-Length: 3\r\n\r\nabc", "0/abc"},
      {"HTTP/1.1 200 OK\r\nContent-Length: 3\r\nContent-Length: 4\r\n\r\nabcd", "2"},
      {"HTTP/1.1 200 OK\r\nContent-Length: -3\r\n\r\nabc", "2"},
      {"HTTP/1.1 200 OK\r\nContent-Length: 99999999999999999999\r\n\r\nabc", "2"},
      {"HTTP/1.1 200 OK\r\nContent-Length: 18446744073709551615\r\n\r\nabc", "0/abc!"},
      {"HTTP/1.1 200 OK\r\nTransfer-Encoding: gzip\r\n\r\nabc", "0/!"},
      {"HTTP/1.1 200 OK\r\nTransfer-Encoding: "
       "Chunked\r\n\r\n3\r\nabc\r\nA;x=\"y\"\r\n0123456789\r\n0\r\n\r\n",
       "0/abc0123456789"},
      {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\nA: b\r\nC: d\r\n\r\n", "0/abc"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Answer(row.input), row.result) << row.input;
    EXPECT_EQ(Answer(row.input, 1), row.result) << "byte by byte: " << row.input;
  }
}

TEST_F(HttpTest, RefusesMalformedChunks) {
  for (const char* chunk : {"x\r\nabc", "-3\r\nabc", "+3\r\nabc", "\r\n;\r\nabc", "3\rabc",
                            "10000000000000003\r\nabc", "8000000000000000\r\nabc", "ffffffffffffffff\r\nabc",
                            "3\r\nab", "3\r\nabc\r\n", "3\r\nabc\r\n0\r\n", "3\r\nabc\r\n0\r\nA: b\r\n"}) {
    const std::string result =
        Answer(std::string("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n") + chunk);
    EXPECT_TRUE(result.ends_with('!')) << chunk << " gives " << result;
    EXPECT_TRUE(connection_.ClosesAfterResponse());
    EXPECT_EQ(connection_.ErrorCode(), NetError::kReadFailed);
  }
}

// A peer that goes away at any byte leaves an error, never a body that passes for whole.
TEST_F(HttpTest, NoticesWhereAnAnswerWasCut) {
  for (const std::string whole :
       {"HTTP/1.1 200 OK\r\nSet-Cookie: a=b\r\nContent-Length: 10\r\n\r\n0123456789",
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n01234\r\n5\r\n56789\r\n0\r\n\r\n"}) {
    ASSERT_EQ(Answer(whole), "0/0123456789");
    for (std::size_t length = 0; length < whole.size(); ++length) {
      const std::string result = Answer(whole.substr(0, length));
      // The last line feed behind a chunked body is missed by nobody.
      const bool nothingLost = length == whole.size() - 1 && whole.ends_with('\n');
      EXPECT_EQ(result == "2" || result == "3" || result.ends_with('!'), !nothingLost)
          << length << ": " << result;
    }
  }
}

TEST_F(HttpTest, BoundsWhatAPeerMaySay) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const std::string interim = "HTTP/1.1 100 Continue\r\n\r\n";
  const auto many = [](const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
      all += text;
    return all;
  };
  EXPECT_EQ(Answer(many(interim, 100) + ok + "\r\nx"), "0/x");
  EXPECT_EQ(Answer(many(interim, 101) + ok + "\r\nx"), "2");
  EXPECT_EQ(Answer(ok + many("a: b\r\n", 5000) + "\r\nx"), "0/x");
  EXPECT_EQ(Answer(ok + many("a: b\r\n", 5001) + "\r\nx"), "2");
  EXPECT_EQ(Answer(ok + std::string(300 * 1024, 'a') + "\r\n\r\nx"), "2");
  EXPECT_EQ(Answer(std::string(400 * 1024, 'a')), "2");
  const std::string chunked = ok + "Transfer-Encoding: chunked\r\n\r\n1;";
  EXPECT_EQ(Answer(chunked + std::string(4000, 'e') + "\r\nx\r\n0\r\n\r\n"), "0/x");
  EXPECT_EQ(Answer(chunked + std::string(5000, 'e') + "\r\nx\r\n0\r\n\r\n"), "0/!");

  NetworkSettings settings;
  settings.largestBody = 4;
  SetNetworkSettings(settings);
  EXPECT_EQ(Answer(ok + "\r\nabcd"), "0/abcd");
  EXPECT_EQ(Answer(ok + "\r\nabcde"), "0/!");
  SetNetworkSettings({});
}

TEST_F(HttpTest, ServesOneRequestAfterTheOther) {
  const std::string first = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n0\r\n\r\n";
  Say(first + "HTTP/1.1 302 Found\r\nLocation: http://h/z\r\nContent-Length: 2\r\n\r\ncd", 7);
  ASSERT_TRUE(connection_.ReadResponseHeaders());
  EXPECT_EQ(Body(), "ab");
  EXPECT_EQ(connection_.BytesReceived(), 2U);
  connection_.SendGet(nullptr, "/y");
  ASSERT_TRUE(connection_.ReadResponseHeaders());
  EXPECT_EQ(connection_.Status(), HTTPStatus::kRedirect);
  EXPECT_EQ(connection_.StatusCode(), 302);
  EXPECT_EQ(connection_.Location(), "http://h/z");
  EXPECT_EQ(connection_.TransferEncoding(), "");
  EXPECT_EQ(connection_.BytesExpected(), 2U);
  EXPECT_EQ(Body(), "cd");
}

TEST_F(HttpTest, TellsWhetherItCanBeUsedAgain) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const struct {
    std::string input;
    bool closes;
  } rows[] = {
      {ok + "Content-Length: 1\r\n\r\nx", false},
      {ok + "Content-Length: 1\r\n\r\nx and more", true},
      {ok + "Content-Length: 2\r\n\r\nx", true},
      {ok + "Connection: close\r\nContent-Length: 1\r\n\r\nx", true},
      {ok + "proxy-connection: CLOSE\r\nContent-Length: 1\r\n\r\nx", true},
      {ok + "\r\nx", true},
  };
  for (const auto& row : rows) {
    Answer(row.input);
    requests_.clear();
    connection_.Probe();
    EXPECT_EQ(connection_.ClosesAfterResponse(), row.closes) << row.input;
    EXPECT_EQ(requests_, row.closes ? "" : "\r\n\r\n");
  }
  Answer(rows[0].input);
  connection_.Close();
  connection_.Probe();
  EXPECT_TRUE(connection_.ClosesAfterResponse());
  EXPECT_EQ(connection_.ErrorCode(), NetError::kClosed);
  EXPECT_EQ(HTTPConnection().ErrorCode(), NetError::kNoConnection);
}

TEST_F(HttpTest, TellsWhenTheBodyCanNotBeStored) {
  Say("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\nx");
  ASSERT_TRUE(connection_.ReadResponseHeaders());
  EXPECT_FALSE(connection_.ReadBody(scratch_ / "none/body"));
  EXPECT_EQ(connection_.ErrorCode(), NetError::kNoLocalFile);
}

TEST_F(HttpTest, KeepsItsHostsCookies) {
  Answer(
      "HTTP/1.1 200 OK\r\nSet-Cookie: a=1; Path=/\r\nset-cookie: b=2\r\nSet-Cookie: A=3;\r\nContent-Length: "
      "1\r\n"
      "\r\nx");
  EXPECT_EQ(connection_.CookieText(), "a=3;b=2");
  connection_.SetHost("H");
  EXPECT_EQ(connection_.CookieText(), "a=3;b=2");
  connection_.SetHost("other");
  EXPECT_EQ(connection_.CookieText(), "");
}

TEST(CookieJar, TakesFourShortPlainCookies) {
  HTTPCookieJar jar;
  jar.SetHost("h");
  jar.StoreCookie(std::string(100, 'n') + "=" + std::string(1000, 'v') + "; Secure");
  for (const char* bad : {"", "=x", "name", "a\tb=c", "a=b\x01", "a=b\x7f"})
    jar.StoreCookie(bad);
  EXPECT_EQ(jar.CookieText(), std::string(31, 'n') + "=" + std::string(255, 'v'));
  for (const char* more : {"b=", "c=1=2", "d=\xe4", "e=5"})
    jar.StoreCookie(more);
  EXPECT_EQ(jar.CookieText().substr(31 + 1 + 255), ";b=;c=1=2;d=\xe4");
  jar.StoreCookie("C=new");
  EXPECT_EQ(jar.Cookies()[2].value, "new");

  HTTPCookieJar same;
  same.SetHost("H");
  same.CopyCookies(jar);
  EXPECT_EQ(same.CookieText(), jar.CookieText());
  HTTPCookieJar other;
  other.SetHost("h2");
  other.CopyCookies(jar);
  EXPECT_TRUE(other.Cookies().empty());
}

}  // namespace
}  // namespace morvex
