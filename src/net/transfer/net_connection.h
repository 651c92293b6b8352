#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "engine/format.h"
#include "net/transfer/input_buffer.h"
#include "net/transfer/line_block.h"
#include "net/transfer/net_transport.h"

namespace morvex {

// A conversation in lines over one transport, which it owns. One thread, its worker, does everything but Close and
// the questions marked so.
class NetConnection {
 public:
  NetConnection() = default;
  NetConnection(const NetConnection&) = delete;
  NetConnection& operator=(const NetConnection&) = delete;

  // Any thread. Ends what the worker waits for.
  virtual void Close();
  virtual ~NetConnection();

  // Replaces the transport; what was read ahead from the old one is dropped.
  void SetTransport(std::unique_ptr<NetTransport> transport);
  // That of the transport, kNoConnection without one. Any thread.
  [[nodiscard]] NetError ErrorCode() const;
  // Why the transport couldn't connect, in words.
  [[nodiscard]] std::string FailureText() const;

  // Bytes of the body so far, and as announced by the peer (0 if it wasn't). Any thread.
  [[nodiscard]] std::uint64_t BytesReceived() const { return bytesReceived_; }
  [[nodiscard]] std::uint64_t BytesExpected() const { return bytesExpected_; }
  // What went out over the transport. Any thread.
  [[nodiscard]] std::uint64_t BytesSent() const;

  // True if the connection can't serve another request.
  [[nodiscard]] bool ClosesAfterResponse() const { return closeAfterResponse_; }

 protected:
  // The longest line that is kept; what is longer is cut.
  static constexpr std::size_t kLineSize = 512;
  // What a peer may send in lines before it says something: one answer with all its headers.
  static constexpr std::size_t kMaxBlockBytes = 300 * 1024;

  // Whether there is a transport without an error.
  [[nodiscard]] bool IsUsable() const;
  // Notes why the conversation broke off; nothing more can follow.
  void BreakOff(NetError error);

  // Sends the lines in one piece. False, and nothing is sent, if one of them was refused; false as well if not all
  // bytes went out.
  [[nodiscard]] bool WriteBlock(const LineBlock& lines);
  template <typename... Args>
  [[nodiscard]] bool WriteLine(std::string_view format, const Args&... args) {
    LineBlock block;
    block.Add(format, args...);
    return WriteBlock(block);
  }

  // Allows the peer another block of lines.
  void BeginBlock() { blockBytesLeft_ = kMaxBlockBytes; }
  // Reads a line that ends with CR LF, LF CR, a lone CR or a lone LF, at most kLineSize - 1 characters of it. True
  // if it holds at least one. The stream's end and the end of the block end the line as it stands; InputEnded tells
  // them from an empty line.
  bool ReadLine(std::string& line);
  [[nodiscard]] bool InputEnded() const { return input_.Ended(); }
  // Behind the empty line that ends a block: passes the second half of its line end.
  void PassLineEnd();

  NetTransport* Transport() const { return transport_.get(); }

  mutable std::mutex lock_;  // of the transport pointers, which Close needs from another thread
  InputBuffer input_;
  std::atomic<std::uint64_t> bytesReceived_ = 0;
  std::atomic<std::uint64_t> bytesExpected_ = 0;
  bool closeAfterResponse_ = false;

 private:
  std::unique_ptr<NetTransport> transport_;
  std::size_t blockBytesLeft_ = 0;
  char lastLineEnd_ = 0;  // the CR or LF that ended the last line, 0 if none
};

}  // namespace morvex
