#include <gtest/gtest.h>

#include <chrono>
#include <future>

#include "net/transfer/http_connection.h"
#include "net/transfer/ip_address.h"
#include "net/transfer/network_settings.h"
#include "net/transfer/ssl_transport.h"
#include "net/transfer/tcp_transport.h"
#include "tests/net/free_port.h"
#include "tests/net/hostile_peer.h"
#include "tests/net/server_process.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

Endpoint Local(std::uint16_t port) {
  return {"127.0.0.1", port};
}

void SetTimeout(milliseconds timeout) {
  NetworkSettings settings;
  settings.timeout = timeout;
  SetNetworkSettings(settings);
}

// All that the peer says.
std::string ReadAll(NetTransport& transport) {
  std::string text;
  char piece[100];
  std::ptrdiff_t got = 0;
  while ((got = transport.Read(piece, sizeof piece)) > 0)
    text.append(piece, static_cast<std::size_t>(got));
  return text;
}

TEST(NameToIPAddress, TakesNumbersAsTheyAre) {
  const struct {
    const char* name;
    std::uint32_t address;  // its first byte goes first
  } rows[] = {
      {"10.0.0.1", 0x0100000A},
      {"255.254.253.252", 0xFCFDFEFF},
      {"localhost", 0x0100007F},
      {"", 0},
      {"1.2.3", 0},
      {"1.2.3.256", 0},
      {"1..2.3", 0},
      {"....", 0},
      {"name.invalid", 0},
  };
  for (const auto& row : rows)
    EXPECT_EQ(NameToIPAddress(row.name), row.address) << row.name;
}

TEST(TcpTransport, ReadsPeeksAndWrites) {
  HostilePeer peer([](PeerSocket& socket) { socket.Send("<" + socket.ReadUpTo("!") + ">"); });
  TCPTransport transport(Local(peer.Port()));
  ASSERT_EQ(transport.ErrorCode(), NetError::kNone) << transport.FailureText();
  EXPECT_FALSE(transport.HasData());
  EXPECT_EQ(transport.Write("hi!", 3), 3);
  char byte = 0;
  EXPECT_EQ(transport.Peek(&byte, 1), 1);
  EXPECT_EQ(byte, '<');
  EXPECT_TRUE(transport.HasData());
  EXPECT_EQ(ReadAll(transport), "<hi!>");
  EXPECT_EQ(transport.ErrorCode(), NetError::kNone);

  const std::unique_ptr<NetTransport> second = transport.OpenSecondary(peer.Port());
  ASSERT_EQ(second->ErrorCode(), NetError::kNone);
  second->Write("again!", 6);
  EXPECT_EQ(ReadAll(*second), "<again!>");
  second->Close();
  EXPECT_EQ(second->ErrorCode(), NetError::kClosed);
  EXPECT_LT(second->Read(&byte, 1), 0);
  EXPECT_LT(second->Write(&byte, 1), 0);
}

TEST(TcpTransport, SaysWhyItCanNotConnect) {
  const FreePort nobody;
  const struct {
    Endpoint target, proxy;
    NetError error;
  } rows[] = {
      {Local(nobody.Number()), {}, NetError::kConnectFailed},
      {{"name.invalid", 80}, {}, NetError::kConnectFailed},
      {{"127.0.0.1", 0}, {}, NetError::kConnectFailed},
      {{"127.0.0.1", 65536U + nobody.Number()}, {}, NetError::kConnectFailed},
      {{"127.0.0.1", 80}, Local(nobody.Number()), NetError::kProxyFailed},
  };
  for (const auto& row : rows) {
    for (const bool tls : {false, true}) {
      std::unique_ptr<NetTransport> transport;
      if (tls) transport = std::make_unique<SSLTransport>(row.target, row.proxy);
      if (!tls) transport = std::make_unique<TCPTransport>(row.target, row.proxy);
      EXPECT_EQ(transport->ErrorCode(), row.error) << row.target.host;
      EXPECT_NE(transport->FailureText(), "");
      char byte = 0;
      EXPECT_LT(transport->Read(&byte, 1), 0);
      EXPECT_LT(transport->Write(&byte, 1), 0);
    }
  }
}

TEST(TcpTransport, ReportsAReset) {
  HostilePeer peer([](PeerSocket& socket) {
    socket.ReadUpTo("!");
    socket.Reset();
  });
  TCPTransport transport(Local(peer.Port()));
  transport.Write("!", 1);
  EXPECT_EQ(ReadAll(transport), "");
  EXPECT_EQ(transport.ErrorCode(), NetError::kReadFailed);
  // A dead peer is no reason for a signal.
  for (int i = 0; i < 3; ++i)
    transport.Write("!", 1);
}

TEST(TcpTransport, WaitsNoLongerThanItMay) {
  SetTimeout(milliseconds(100));
  HostilePeer peer([](PeerSocket& socket) { socket.Stall(); });
  TCPTransport transport(Local(peer.Port()));
  const auto start = Clock::now();
  EXPECT_EQ(ReadAll(transport), "");
  EXPECT_EQ(transport.ErrorCode(), NetError::kReadFailed);
  EXPECT_EQ(SSLTransport(Local(peer.Port())).ErrorCode(), NetError::kConnectFailed);
  const FreePort inbound;
  TCPTransport waiting;
  waiting.AwaitConnection(inbound.Number());
  EXPECT_EQ(waiting.ErrorCode(), NetError::kConnectFailed);
  EXPECT_GE(Clock::now() - start, milliseconds(300));
  EXPECT_LT(Clock::now() - start, milliseconds(20000));
  SetNetworkSettings({});
}

// What a thread waits for in a transport ends when another one closes it.
TEST(TcpTransport, EndsItsWaitsWhenClosed) {
  HostilePeer peer([](PeerSocket& socket) { socket.Stall(); });
  const FreePort inbound;
  const auto expectToEnd = [](NetTransport& transport, auto wait) {
    std::future<void> waiting = std::async(std::launch::async, wait);
    EXPECT_EQ(waiting.wait_for(milliseconds(50)), std::future_status::timeout);
    transport.Close();
    ASSERT_EQ(waiting.wait_for(milliseconds(10000)), std::future_status::ready);
    EXPECT_EQ(transport.ErrorCode(), NetError::kClosed);
  };
  TCPTransport reading(Local(peer.Port()));
  expectToEnd(reading, [&] { ReadAll(reading); });
  SSLTransport shaking;
  expectToEnd(shaking, [&] { shaking.Connect(Local(peer.Port())); });
  TCPTransport asking;
  expectToEnd(asking, [&] { asking.Connect(Local(1), Local(peer.Port())); });
  TCPTransport listening;
  expectToEnd(listening, [&] { listening.AwaitConnection(inbound.Number()); });

  TCPTransport early;
  early.Close();
  early.Connect(Local(peer.Port()));
  EXPECT_EQ(early.ErrorCode(), NetError::kClosed);
}

TEST(TcpTransport, BecomesAnInboundConnection) {
  const FreePort port;
  TCPTransport caller;
  std::future<void> calling = std::async(std::launch::async, [&] {
    for (int i = 0; i < 500; ++i) {
      TCPTransport attempt(Local(port.Number()));
      if (attempt.Write("hello", 5) == 5) return;
      std::this_thread::sleep_for(milliseconds(10));
    }
  });
  TCPTransport transport;
  transport.AwaitConnection(port.Number());
  ASSERT_EQ(transport.ErrorCode(), NetError::kNone) << transport.FailureText();
  EXPECT_EQ(ReadAll(transport), "hello");
  calling.wait();
}

TEST(Proxy, IsAskedForTheTarget) {
  const struct {
    std::string answer, rest;  // what is left to be read behind the proxy's answer
    NetError error;
  } rows[] = {
      {"HTTP/1.0 200 OK\r\n\r\nhello", "hello", NetError::kNone},
      {"HTTP/1.0 200 OK\r\nVia: x\r\n\r\nhello", "hello", NetError::kNone},
      {"HTTP/1.0 200 OK\nVia: x\r\n\r\nhello", "hello", NetError::kNone},
      {"HTTP/1.0 403 Forbidden\r\n\r\n", "", NetError::kNone},
      {"HTTP/1.0 200 OK\n\nhello", "", NetError::kProxyFailed},
      {"HTTP/1.0 200 OK\r\n", "", NetError::kProxyFailed},
      {std::string(400000, 'x') + "\r\n\r\n", "", NetError::kProxyFailed},
      {"", "", NetError::kProxyFailed},
  };
  for (const auto& row : rows) {
    std::promise<std::string> request;
    HostilePeer peer([&](PeerSocket& socket) {
      request.set_value(socket.ReadUpTo("\r\n\r\n"));
      socket.Send(row.answer);
    });
    TCPTransport transport({"target.example", 8080}, Local(peer.Port()));
    EXPECT_EQ(transport.ErrorCode(), row.error) << row.answer.substr(0, 80);
    EXPECT_EQ(ReadAll(transport), row.rest);
    EXPECT_EQ(request.get_future().get(), "CONNECT target.example:8080 HTTP/1.0 \r\n\r\n");
  }
  std::promise<std::string> request;
  HostilePeer peer([&](PeerSocket& socket) { request.set_value(socket.ReadUpTo("\r\n\r\n")); });
  const TCPTransport twoLines({"a:1 HTTP/1.0\r\nEvil: b", 80}, Local(peer.Port()));
  EXPECT_EQ(twoLines.ErrorCode(), NetError::kProxyFailed);
  EXPECT_EQ(request.get_future().get(), "");
}

// A peer that crashes at any byte of its answer, or falls silent there, ends in an error and nothing else.
TEST(HostilePeer, GoesAwayAtAnyByte) {
  SetTimeout(milliseconds(50));
  const ScratchFolder scratch;
  const std::string answer =
      "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nSet-Cookie: a=b\r\n\r\n3\r\nabc\r\n0\r\n\r\n";
  std::atomic<std::size_t> length = 0;
  std::atomic<bool> stalls = false;
  HostilePeer peer([&](PeerSocket& socket) {
    socket.ReadUpTo("\r\n\r\n");
    socket.Send(std::string_view(answer).substr(0, length));
    if (stalls) socket.Stall();
    if (!stalls) socket.Reset();
  });
  const auto fetch = [&] {
    HTTPConnection connection;
    connection.SetTransport(std::make_unique<TCPTransport>(Local(peer.Port())));
    connection.SetHost("h");
    connection.SendGet(nullptr, "/");
    const bool got = connection.ReadResponseHeaders() && connection.ReadBody(scratch / "body");
    EXPECT_EQ(got, connection.ErrorCode() == NetError::kNone);
    return got;
  };
  for (length = 0; length < answer.size() - 1; ++length) {
    EXPECT_FALSE(fetch()) << "reset behind " << length;
  }
  stalls = true;
  for (const std::size_t place : {0, 5, 17, 40, 65, 68, 71, 75}) {
    length = place;
    EXPECT_FALSE(fetch()) << "silent behind " << length;
  }
  length = answer.size();
  EXPECT_TRUE(fetch());
  EXPECT_EQ(GetText(scratch / "body"), "abc");
  SetNetworkSettings({});
}

TEST(HostilePeer, MayTalkWithoutEnd) {
  const ScratchFolder scratch;
  for (const std::string start :
       {"", "HTTP/1.1 200 OK\r\nX: ", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3;"}) {
    HostilePeer peer([&](PeerSocket& socket) {
      socket.ReadUpTo("\r\n\r\n");
      socket.Send(start);
      while (socket.Send(std::string(65536, 'a'))) {
      }
    });
    HTTPConnection connection;
    connection.SetTransport(std::make_unique<TCPTransport>(Local(peer.Port())));
    connection.SetHost("h");
    connection.SendGet(nullptr, "/");
    EXPECT_FALSE(connection.ReadResponseHeaders() && connection.ReadBody(scratch / "body")) << start;
    connection.Close();
  }
}

}  // namespace
}  // namespace morvex
