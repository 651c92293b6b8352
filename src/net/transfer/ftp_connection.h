#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "net/transfer/net_connection.h"

namespace morvex {

class BodyFile;

// A client of FTP that fetches one file at a time, in binary and over a passive data connection, which goes to the
// control connection's own host whatever address the peer gives. Names, users and passwords with a line end or a
// NUL are refused before anything is sent.
class FTPConnection : public NetConnection {
 public:
  explicit FTPConnection(std::string host) : host_(std::move(host)) {}
  ~FTPConnection() override;

  // Says "quit", then closes both transports. Any thread.
  void Close() override;

  // Once, on a fresh connection. Without a user it logs in as "anonymous". True if the peer let us in.
  [[nodiscard]] bool Login(std::string_view user, std::string_view password);
  // Whether the local file is the beginning of a file that is so large. Asked before any of it is fetched, without
  // an offset as well.
  using IsBeginning = std::function<bool(std::uint64_t size)>;
  // Fetches a file; with an offset, the rest of it behind that many bytes of the local file, which must be there.
  // All of it if these are said not to be its beginning. True if the local file is complete. Otherwise what arrived
  // stays in it, for a later resume.
  [[nodiscard]] bool Retrieve(std::string_view remoteName, std::string_view localFile,
                              std::uint64_t resumeOffset, const IsBeginning& isBeginning = {});
  // Asks whether an idle connection can be used again: ClosesAfterResponse tells.
  void Probe();

  // Reads one reply. True if it has this code.
  [[nodiscard]] bool WaitForReply(int code);
  [[nodiscard]] const std::string& ReplyLine() const { return replyLine_; }
  // The host of the control connection.
  [[nodiscard]] const std::string& Host() const { return host_; }

 private:
  // The steps of Retrieve. Each is false at the first reply that it doesn't expect.
  bool PrepareTransfer(const LineBlock& commands, std::uint64_t& size);
  bool OpenDataConnection();
  bool StartTransfer(const LineBlock& command, std::uint64_t resumeOffset);
  bool ReceiveFile(BodyFile& file, std::uint64_t size);
  void DropDataConnection();

  std::string host_;
  std::string replyLine_;
  std::unique_ptr<NetTransport> dataTransport_;  // while a transfer runs; under lock_
};

}  // namespace morvex
