// Against nginx, vsftpd and tinyproxy.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "net/transfer/ftp_connection.h"
#include "net/transfer/http_connection.h"
#include "net/transfer/network_settings.h"
#include "net/transfer/ssl_transport.h"
#include "net/transfer/tcp_transport.h"
#include "net/transfer/url.h"
#include "tests/net/test_servers.h"

namespace morvex {
namespace {

constexpr const char* kLocations = R"(
  location /chunked/ { ssi on; ssi_types *; }
  location /give { add_header Set-Cookie "a=1; Path=/"; add_header Set-Cookie "b=2"; return 200 "given"; }
  location /show { return 200 "[$http_cookie]"; }
  location /broken { return 500 "no"; }
  location /last { keepalive_requests 1; root @DIR@/served; }
  location /post { client_body_in_file_only on; proxy_pass http://127.0.0.1:@PORT@/posted; }
  location /posted { return 200 "thanks"; }
)";

bool IsTlsLoaded() {
  return GetText("/proc/self/maps").find("libssl") != std::string::npos;
}
const bool loadedAtStart = IsTlsLoaded();

class NginxTest : public testing::Test {
 protected:
  NginxTest() { server_.Put("plain.bin", "plain content"); }

  URL Url(const std::string& path, bool tls = false) const {
    return URL((tls ? "https://localhost:" : "http://localhost:") +
               std::to_string(tls ? server_.TlsPort() : server_.Port()) + path);
  }
  void Connect(const URL& url) {
    const Endpoint target{std::string(url.host), url.DefaultPort()};
    std::unique_ptr<NetTransport> transport;
    if (url.HasScheme("https")) {
      transport = std::make_unique<SSLTransport>(target);
    } else {
      transport = std::make_unique<TCPTransport>(target);
    }
    connection_.SetTransport(std::move(transport));
    connection_.SetHost(url.host);
  }
  // One more request on the connection; the body, or '!' and the number of the status.
  std::string Get(const URL& url) {
    connection_.SendGet(nullptr, "%s", url.ToString());
    if (!connection_.ReadResponseHeaders()) return "!" + std::to_string(connection_.StatusCode());
    return connection_.ReadBody(file_) ? GetText(file_) : "?";
  }
  std::string GetAnew(const URL& url) {
    Connect(url);
    return Get(url);
  }

  NginxServer server_{kLocations};
  const ScratchFolder scratch_;
  const std::string file_ = scratch_ / "body";
  HTTPConnection connection_;
};

TEST_F(NginxTest, ServesPlainAndOverTls) {
  const std::string large = LargeText(3000000);
  server_.Put("large.bin", large);
  for (const bool tls : {false, true}) {
    Connect(Url("/", tls));
    EXPECT_EQ(connection_.FailureText(), "");
    EXPECT_EQ(Get(Url("/plain.bin", tls)), "plain content");
    EXPECT_EQ(Get(Url("/missing", tls)), "!404");
    EXPECT_EQ(Get(Url("/broken", tls)), "!500");
  }
  for (const bool tls : {false, true})
    EXPECT_TRUE(GetAnew(Url("/large.bin", tls)) == large);
  EXPECT_EQ(connection_.BytesExpected(), large.size());
  EXPECT_NE(server_.Requests().find("GET " + Url("/plain.bin").ToString() + " HTTP/1.1\n"),
            std::string::npos);
}

TEST_F(NginxTest, SendsChunks) {
  const std::string large = LargeText(300000);
  std::filesystem::create_directory(server_.Served() + "/chunked");
  server_.Put("chunked/page", large);
  Connect(Url("/"));
  EXPECT_TRUE(Get(Url("/chunked/page")) == large);
  EXPECT_EQ(connection_.TransferEncoding(), "chunked");
  EXPECT_FALSE(connection_.ClosesAfterResponse());
  EXPECT_EQ(Get(Url("/plain.bin")), "plain content");
}

TEST_F(NginxTest, GetsItsCookiesBack) {
  Connect(Url("/"));
  EXPECT_EQ(Get(Url("/show")), "[]");
  EXPECT_EQ(Get(Url("/give")), "given");
  EXPECT_EQ(Get(Url("/show")), "[a=1;b=2]");
}

TEST_F(NginxTest, EndsKeptConnections) {
  Connect(Url("/"));
  EXPECT_EQ(Get(Url("/plain.bin")), "plain content");
  connection_.Probe();
  EXPECT_FALSE(connection_.ClosesAfterResponse());
  EXPECT_EQ(Get(Url("/plain.bin")), "plain content") << "the probe's line ends don't disturb";
  server_.Put("last", "x");
  EXPECT_EQ(Get(Url("/last")), "x");
  EXPECT_TRUE(connection_.ClosesAfterResponse());
  EXPECT_EQ(Get(Url("/plain.bin")), "!0");
  EXPECT_EQ(connection_.Status(), HTTPStatus::kNoResponse);
}

TEST_F(NginxTest, TakesAForm) {
  TagContainer file;
  file.SetRaw(Nox::PString("filedata"), ACSRawDataCore::TakeText(LargeText(2000000)));
  file.SetString(Nox::PString("filename"), "upload.cdp");
  TagContainer form;
  form.SetContainer(Nox::PString("UL_File"), file);
  for (const bool tls : {false, true}) {
    Connect(Url("/post", tls));
    connection_.SendPost(Url("/post", tls), form);
    ASSERT_TRUE(connection_.ReadResponseHeaders());
    ASSERT_TRUE(connection_.ReadBody(file_));
    EXPECT_EQ(GetText(file_), "thanks");
  }
}

TEST_F(NginxTest, IsVerifiedWhereThatIsWanted) {
  NetworkSettings settings;
  settings.verifyPeers = true;
  SetNetworkSettings(settings);
  setenv("SSL_CERT_FILE", server_.CertificateFile().c_str(), 1);
  EXPECT_EQ(GetAnew(Url("/plain.bin", true)), "plain content");
  // The certificate is for the name alone.
  URL byAddress = Url("/plain.bin", true);
  byAddress.host.Set("127.0.0.1");
  EXPECT_EQ(GetAnew(byAddress), "!0");
  EXPECT_EQ(connection_.ErrorCode(), NetError::kConnectFailed);
  EXPECT_NE(connection_.FailureText().find("certificate isn't trusted"), std::string::npos)
      << connection_.FailureText();
  const NginxServer stranger("", "DNS:localhost");
  EXPECT_EQ(SSLTransport({"localhost", stranger.TlsPort()}).ErrorCode(), NetError::kConnectFailed);
  SetNetworkSettings({});
  EXPECT_EQ(SSLTransport({"localhost", stranger.TlsPort()}).ErrorCode(), NetError::kNone);
}

TEST_F(NginxTest, IsMissedWhenItGoes) {
  Connect(Url("/", true));
  EXPECT_EQ(Get(Url("/plain.bin", true)), "plain content");
  server_.Stop();
  EXPECT_EQ(Get(Url("/plain.bin", true)), "!0");
  SSLTransport plainPeer({"localhost", server_.TlsPort()});
  EXPECT_EQ(plainPeer.ErrorCode(), NetError::kConnectFailed);
}

TEST_F(NginxTest, SpeaksTlsOnlyWhereItShould) {
  SSLTransport transport({"localhost", server_.Port()});
  EXPECT_EQ(transport.ErrorCode(), NetError::kConnectFailed);
  EXPECT_EQ(transport.OpenSecondary(80), nullptr);
  char byte = 0;
  EXPECT_EQ(transport.Read(&byte, 1), -1);
  EXPECT_EQ(transport.Peek(&byte, 1), -1);
}

// The TLS library costs a start of its own, so only those pay who use it.
TEST(Tls, IsLoadedAtItsFirstUse) {
  EXPECT_FALSE(loadedAtStart);
  const NginxServer server("");
  SSLTransport transport({"localhost", server.TlsPort()});
  EXPECT_TRUE(IsTlsLoaded());
}

class VsftpdTest : public testing::Test {
 protected:
  void Connect() {
    connection_ = std::make_unique<FTPConnection>("127.0.0.1");
    connection_->SetTransport(std::make_unique<TCPTransport>(Endpoint{"127.0.0.1", server_.Port()}));
  }

  FtpServer server_;
  const ScratchFolder scratch_;
  const std::string file_ = scratch_ / "file";
  std::unique_ptr<FTPConnection> connection_;
};

TEST_F(VsftpdTest, GivesFilesAndTheirRests) {
  const std::string large = LargeText(1000000);
  server_.Put("large.bin", large);
  server_.Put("empty", "");
  Connect();
  ASSERT_TRUE(connection_->Login("anonymous", "x")) << connection_->ReplyLine();
  EXPECT_TRUE(connection_->Retrieve("large.bin", file_, 0)) << connection_->ReplyLine();
  EXPECT_TRUE(GetText(file_) == large);
  connection_->Probe();
  EXPECT_FALSE(connection_->ClosesAfterResponse());

  PutText(file_, large.substr(0, 123456));
  EXPECT_TRUE(connection_->Retrieve("large.bin", file_, 123456)) << connection_->ReplyLine();
  EXPECT_TRUE(GetText(file_) == large);
  EXPECT_EQ(connection_->BytesReceived(), large.size());
  EXPECT_TRUE(connection_->Retrieve("large.bin", file_, large.size()));
  EXPECT_TRUE(connection_->Retrieve("empty", file_, 0));
  EXPECT_EQ(GetText(file_), "");
  EXPECT_FALSE(connection_->Retrieve("missing", file_, 0));
  EXPECT_TRUE(connection_->ReplyLine().starts_with("550")) << connection_->ReplyLine();
}

TEST_F(VsftpdTest, IsReachedThroughAProxy) {
  const ProxyServer proxy;
  connection_ = std::make_unique<FTPConnection>("127.0.0.1");
  connection_->SetTransport(std::make_unique<TCPTransport>(Endpoint{"127.0.0.1", server_.Port()},
                                                           Endpoint{"127.0.0.1", proxy.Port()}));
  EXPECT_TRUE(connection_->Login("", ""));
}

}  // namespace
}  // namespace morvex
