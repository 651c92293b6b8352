#include "net/transfer/ftp_connection.h"

#include <gtest/gtest.h>

#include "net/transfer/ftp_reply.h"
#include "tests/net/memory_transport.h"
#include "tests/net/server_process.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

TEST(FtpReply, GivesItsNumbers) {
  const struct {
    const char* line;
    std::optional<std::uint32_t> port;
  } ports[] = {
      {"227 Entering Passive Mode (10,0,0,1,19,137)", 5001},
      {"227 =10,0,0,1,0,21", 21},
      {"227 Entering Passive Mode (10,0,0,1,255,255).", 65535},
      {"227 Entering Passive Mode (10,0,0,1,0,0)", std::nullopt},
      {"227 Entering Passive Mode (10,0,0,1,256,1)", std::nullopt},
      {"227 Entering Passive Mode (10,0,0,1,-1,1)", std::nullopt},
      {"227 Entering Passive Mode (10,0,0,1,19", std::nullopt},
      {"227 Entering Passive Mode", std::nullopt},
      {"227", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& row : ports)
    EXPECT_EQ(ReadPassivePort(row.line), row.port) << row.line;
  EXPECT_EQ(ReadReplyNumber("213 4294967296"), 4294967296U);
  EXPECT_EQ(ReadReplyNumber("213 18446744073709551616"), std::nullopt);
  EXPECT_EQ(ReadReplyNumber("213 -1"), std::nullopt);
  EXPECT_EQ(ReadReplyNumber("213 big"), std::nullopt);
  EXPECT_EQ(ReadReplyNumber("213"), std::nullopt);
}

// A connection whose peer says `control`, and `data` on each data connection.
class FtpTest : public testing::Test {
 protected:
  void Say(std::string_view control, const std::string& data = "") {
    connection_.reset();
    commands_.clear();
    dataPort_ = 0;
    connection_ = std::make_unique<FTPConnection>("h");
    auto transport = std::make_unique<MemoryTransport>(control, &commands_, 3);
    transport->SetSecondary([this, data](std::uint32_t port) {
      dataPort_ = port;
      return std::make_unique<MemoryTransport>(data, nullptr, 4);
    });
    connection_->SetTransport(std::move(transport));
  }
  bool Retrieve(std::uint64_t offset = 0) { return connection_->Retrieve("dir/a file", file_, offset); }

  static constexpr const char* kReady = "200 ok\r\n227 x (1,2,3,4,19,137)\r\n213 10\r\n";

  const ScratchFolder scratch_;
  const std::string file_ = scratch_ / "file";
  std::string commands_;
  std::uint32_t dataPort_ = 0;
  std::unique_ptr<FTPConnection> connection_;
};

TEST_F(FtpTest, JudgesRepliesByTheirCode) {
  std::string endless = "220-\r\n";
  for (int i = 0; i < 2000; ++i)
    endless += "more\r\n";
  const struct {
    std::string replies;
    bool good;
  } rows[] = {
      {"220 Ready\r\n", true},
      {"220 \r\n", true},
      {"220\r\n", false},
      {"221 Bye\r\n", false},
      {"220-Welcome\r\n220 Ready\r\n", true},
      {"220-Welcome\r\n\r\n 220 not yet\r\n221 nor this\r\n220 Ready\r\n", true},
      {"220-Welcome\r\n", false},
      {"220-Welcome\r\n\r\n", false},
      {"220_\r\n220 \r\n", false},
      {endless + "220 at last\r\n", false},
      {std::string(400000, '2') + "\r\n220 \r\n", false},
      {"", false},
  };
  for (const auto& row : rows) {
    Say(row.replies);
    EXPECT_EQ(connection_->WaitForReply(220), row.good) << row.replies.substr(0, 80);
  }
}

TEST_F(FtpTest, LogsIn) {
  Say("220-hello\r\n220 x\r\n331 x\r\n230 x\r\n");
  EXPECT_TRUE(connection_->Login("me", "my secret"));
  EXPECT_EQ(commands_, "user me\r\npass my secret\r\n");
  Say("220 x\r\n331 x\r\n230 x\r\n");
  EXPECT_TRUE(connection_->Login("", ""));
  EXPECT_EQ(commands_, "user anonymous\r\npass anonymous@\r\n");
  Say("220 x\r\n331 x\r\n530 no\r\n");
  EXPECT_FALSE(connection_->Login("me", "wrong"));
  EXPECT_EQ(connection_->ReplyLine(), "530 no");
  for (const char* bad : {"a\r\ndele x", "a\nb", "a\rb"}) {
    Say("220 x\r\n331 x\r\n230 x\r\n");
    EXPECT_FALSE(connection_->Login(bad, "x"));
    EXPECT_FALSE(connection_->Login("x", bad));
    EXPECT_FALSE(connection_->Retrieve(bad, file_, 0));
    EXPECT_EQ(commands_, "");
  }
}

TEST_F(FtpTest, FetchesAFile) {
  Say(std::string(kReady) + "150 x\r\n226 x\r\n", "0123456789 and more");
  EXPECT_TRUE(Retrieve());
  EXPECT_EQ(commands_, "type i\r\npasv\r\nsize dir/a file\r\nretr dir/a file\r\n");
  EXPECT_EQ(dataPort_, 5001U);
  EXPECT_EQ(GetText(file_), "0123456789");
  EXPECT_EQ(connection_->BytesReceived(), 10U);
  EXPECT_EQ(connection_->BytesExpected(), 10U);
}

TEST_F(FtpTest, ResumesAFile) {
  PutText(file_, "0123");
  Say(std::string(kReady) + "350 x\r\n150 x\r\n226 x\r\n", "456789");
  EXPECT_TRUE(Retrieve(4));
  EXPECT_EQ(commands_, "type i\r\npasv\r\nsize dir/a file\r\nrest 4\r\nretr dir/a file\r\n");
  EXPECT_EQ(GetText(file_), "0123456789");

  Say(kReady);
  EXPECT_TRUE(Retrieve(10)) << "nothing is left to fetch";
  EXPECT_EQ(commands_, "type i\r\npasv\r\nsize dir/a file\r\n");
  Say(std::string(kReady) + "350 x\r\n150 x\r\n226 x\r\n", "456789");
  EXPECT_FALSE(Retrieve(11)) << "the local file is shorter than that";
  EXPECT_EQ(GetText(file_), "0123456789");
}

TEST_F(FtpTest, FailsWhereAStepFails) {
  const struct {
    std::string control, data;
  } rows[] = {
      {"500 x\r\n", ""},
      {"200 x\r\n500 x\r\n", ""},
      {"200 x\r\n227 no port\r\n213 10\r\n150 x\r\n226 x\r\n", "0123456789"},
      {"200 x\r\n227 x (1,2,3,4,19,137)\r\n550 no such file\r\n", ""},
      {"200 x\r\n227 x (1,2,3,4,19,137)\r\n213 many\r\n", ""},
      {std::string(kReady) + "550 x\r\n", "0123456789"},
      {std::string(kReady) + "150 x\r\n226 x\r\n", "012345678"},
      {std::string(kReady) + "150 x\r\n426 x\r\n", "0123456789"},
      {"200 x\r\n227 x (1,2,3,4,19,137)\r\n213 9223372036854775808\r\n150 x\r\n226 x\r\n", "0123456789"},
      {"", ""},
  };
  for (const auto& row : rows) {
    Say(row.control, row.data);
    EXPECT_FALSE(Retrieve()) << row.control;
    EXPECT_EQ(connection_->ErrorCode(), NetError::kReadFailed);
    EXPECT_TRUE(connection_->ClosesAfterResponse());
  }
  const std::string whole = std::string(kReady) + "150 x\r\n226 x\r\n";
  for (std::size_t length = 0; length < whole.size() - 4; ++length) {
    Say(whole.substr(0, length), "0123456789");
    EXPECT_FALSE(Retrieve()) << length;
  }
}

TEST_F(FtpTest, SaysGoodbyeAndProbes) {
  Say("257 \"/\"\r\n550 x\r\n");
  connection_->Probe();
  EXPECT_FALSE(connection_->ClosesAfterResponse());
  connection_->Probe();
  EXPECT_TRUE(connection_->ClosesAfterResponse());
  connection_->Close();
  connection_->Close();
  EXPECT_EQ(commands_, "PWD\r\nPWD\r\nquit\r\n");
}

}  // namespace
}  // namespace morvex
