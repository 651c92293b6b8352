#include "net/transfer/net_connection.h"

#include <utility>

namespace morvex {

NetConnection::~NetConnection() = default;

void NetConnection::Close() {
  const std::lock_guard guard(lock_);
  if (transport_) transport_->Close();
}

void NetConnection::SetTransport(std::unique_ptr<NetTransport> transport) {
  {
    const std::lock_guard guard(lock_);
    transport_.swap(transport);
  }
  input_.Reset(transport_.get());
  lastLineEnd_ = 0;
  closeAfterResponse_ = false;
}

NetError NetConnection::ErrorCode() const {
  const std::lock_guard guard(lock_);
  return transport_ ? transport_->ErrorCode() : NetError::kNoConnection;
}

std::uint64_t NetConnection::BytesSent() const {
  const std::lock_guard guard(lock_);
  return transport_ ? transport_->BytesSent() : 0;
}

std::string NetConnection::FailureText() const {
  return transport_ ? transport_->FailureText() : std::string();
}

bool NetConnection::IsUsable() const {
  return ErrorCode() == NetError::kNone;
}

void NetConnection::BreakOff(NetError error) {
  closeAfterResponse_ = true;
  if (transport_) transport_->NoteError(error);
}

bool NetConnection::WriteBlock(const LineBlock& lines) {
  const std::string& text = lines.Text();
  return !lines.Refused() && IsUsable() &&
         transport_->Write(text.data(), text.size()) == static_cast<std::ptrdiff_t>(text.size());
}

bool NetConnection::ReadLine(std::string& line) {
  line.clear();
  for (;;) {
    if (blockBytesLeft_ == 0) input_.Fail();
    const int next = input_.Next();
    if (next < 0) return !line.empty();
    --blockBytesLeft_;
    const char byte = static_cast<char>(next);
    if (byte != '\r' && byte != '\n') {
      if (line.size() < kLineSize - 1) line += byte;
    } else if (!line.empty()) {
      lastLineEnd_ = byte;
      return true;
    } else if (lastLineEnd_ == 0 || lastLineEnd_ == byte) {
      lastLineEnd_ = lastLineEnd_ == 0 ? byte : char{0};
      return false;
    } else {
      lastLineEnd_ = 0;  // the second half of the last line's end
    }
  }
}

void NetConnection::PassLineEnd() {
  if (lastLineEnd_ == '\r' && input_.Peek() == '\n') input_.Next();
  lastLineEnd_ = 0;
}

}  // namespace morvex
