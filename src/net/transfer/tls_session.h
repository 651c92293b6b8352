#pragma once

#include <cstddef>
#include <memory>
#include <string>

struct ssl_st;

namespace morvex {

class StreamSocket;

// What the library's reads and writes go through.
struct TlsWire {
  StreamSocket& socket;
  bool waits = true;  // else reads take only what has come
};

// A TLS client's session over a socket, which must outlive it. The session's bytes take the same way as those of
// plain connections, with their time-outs and without signals. For one thread at a time.
class TlsSession {
 public:
  // Shakes hands with `host`. With `verifyPeer` its certificate must be for that name and come from an authority of
  // the system's store. Null on failure, which is then put into words.
  [[nodiscard]] static std::unique_ptr<TlsSession> Start(StreamSocket& socket, const std::string& host,
                                                         bool verifyPeer, std::string& failure);
  ~TlsSession();
  TlsSession(const TlsSession&) = delete;
  TlsSession& operator=(const TlsSession&) = delete;

  // As NetTransport's. A stream that ends without the peer's word for it ends in an error.
  std::ptrdiff_t Read(void* buffer, std::size_t length);
  std::ptrdiff_t Peek(void* buffer, std::size_t length);
  std::ptrdiff_t Write(const void* buffer, std::size_t length);
  // Tells the peer that the stream ends here.
  void End();

 private:
  TlsSession(ssl_st* session, StreamSocket& socket) : session_(session), wire_{socket} {}
  std::ptrdiff_t ReadRecord(void* buffer, std::size_t length);
  std::ptrdiff_t Result(int got);

  ssl_st* session_;
  TlsWire wire_;
  bool broken_ = false;  // nothing more can be sent
};

}  // namespace morvex
