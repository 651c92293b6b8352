#include "net/transfer/ftp_connection.h"

#include <utility>

#include "net/transfer/body_file.h"
#include "net/transfer/ftp_reply.h"
#include "net/transfer/network_settings.h"

namespace morvex {
namespace {

constexpr int kMaxReplyLines = 1000;
constexpr std::string_view kGoodbye = "quit\r\n";

}  // namespace

FTPConnection::~FTPConnection() {
  FTPConnection::Close();
}

void FTPConnection::Close() {
  {
    const std::lock_guard guard(lock_);
    if (Transport() != nullptr && Transport()->ErrorCode() == NetError::kNone)
      Transport()->Write(kGoodbye.data(), kGoodbye.size());
    if (dataTransport_) dataTransport_->Close();
  }
  NetConnection::Close();
}

bool FTPConnection::WaitForReply(int code) {
  BeginBlock();
  if (!ReadLine(replyLine_)) return false;
  if (HasReplyCode(replyLine_, code, ' ')) return true;
  if (!HasReplyCode(replyLine_, code, '-')) return false;
  for (int count = 1; count < kMaxReplyLines; ++count) {
    // Between its first and its last line a reply may hold anything, empty lines as well.
    if (!ReadLine(replyLine_) && InputEnded()) return false;
    if (HasReplyCode(replyLine_, code, ' ')) return true;
  }
  return false;
}

bool FTPConnection::Login(std::string_view user, std::string_view password) {
  LineBlock userLine;
  LineBlock passwordLine;
  userLine.Add("user %s\r\n", user.empty() ? "anonymous" : user);
  passwordLine.Add("pass %s\r\n", user.empty() && password.empty() ? "anonymous@" : password);
  if (passwordLine.Refused()) return false;
  return WriteBlock(userLine) && WaitForReply(220) && WaitForReply(331) && WriteBlock(passwordLine) &&
         WaitForReply(230);
}

bool FTPConnection::Retrieve(std::string_view remoteName, std::string_view localFile,
                             std::uint64_t resumeOffset, const IsBeginning& isBeginning) {
  LineBlock question;
  question.Add("type i\r\n");
  question.Add("pasv\r\n");
  question.Add("size %s\r\n", remoteName);
  LineBlock order;
  order.Add("retr %s\r\n", remoteName);
  if (question.Refused()) return false;

  bytesExpected_ = 0;
  BodyFile file(bytesReceived_, GetNetworkSettings().largestBody);
  std::uint64_t size = 0;
  bool complete = file.Open(localFile, resumeOffset) && PrepareTransfer(question, size);
  if (complete && isBeginning && !isBeginning(size)) {
    resumeOffset = 0;
    complete = file.StartOver();
  }
  if (complete && resumeOffset < size)
    complete = StartTransfer(order, resumeOffset) && ReceiveFile(file, size - resumeOffset);
  DropDataConnection();
  complete = file.Close() && complete;
  if (!complete) BreakOff(file.StoringFailed() ? NetError::kNoLocalFile : NetError::kReadFailed);
  return complete;
}

bool FTPConnection::PrepareTransfer(const LineBlock& commands, std::uint64_t& size) {
  if (!WriteBlock(commands) || !WaitForReply(200) || !WaitForReply(227) || !OpenDataConnection())
    return false;
  if (!WaitForReply(213)) return false;
  const std::optional<std::uint64_t> number = ReadReplyNumber(replyLine_);
  size = number.value_or(0);
  bytesExpected_ = size;
  return number.has_value();
}

bool FTPConnection::OpenDataConnection() {
  const std::optional<std::uint32_t> port = ReadPassivePort(replyLine_);
  if (!port) return false;
  std::unique_ptr<NetTransport> opened = Transport()->OpenSecondary(*port);
  if (!opened || opened->ErrorCode() != NetError::kNone) return false;
  const std::lock_guard guard(lock_);
  dataTransport_ = std::move(opened);
  return true;
}

bool FTPConnection::StartTransfer(const LineBlock& command, std::uint64_t resumeOffset) {
  if (resumeOffset > 0 && !(WriteLine("rest %d\r\n", resumeOffset) && WaitForReply(350))) return false;
  return WriteBlock(command) && WaitForReply(150);
}

bool FTPConnection::ReceiveFile(BodyFile& file, std::uint64_t size) {
  InputBuffer data;
  data.Reset(dataTransport_.get());
  const bool received = file.Receive(data, size);
  DropDataConnection();
  return received && WaitForReply(226);
}

void FTPConnection::DropDataConnection() {
  std::unique_ptr<NetTransport> dropped;  // goes when the lock is free again
  const std::lock_guard guard(lock_);
  dropped.swap(dataTransport_);
}

void FTPConnection::Probe() {
  if (!WriteLine("PWD\r\n") || !WaitForReply(257)) closeAfterResponse_ = true;
}

}  // namespace morvex
