#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

// One connection of a peer that does what real servers don't. Nothing throws: once the other side is gone, calls
// do nothing.
class PeerSocket {
 public:
  PeerSocket(int handle, const std::atomic<bool>& stopped) : handle_(handle), stopped_(stopped) {}
  ~PeerSocket();
  PeerSocket(const PeerSocket&) = delete;
  PeerSocket& operator=(const PeerSocket&) = delete;

  // What the other side sent, up to and with `end`, or all there was.
  std::string ReadUpTo(std::string_view end);
  // False once the other side is gone.
  bool Send(std::string_view bytes);
  // Says nothing until the other side goes, or the test ends.
  void Stall();
  // Ends the connection as a crash does: by a reset.
  void Reset();

 private:
  int handle_;
  const std::atomic<bool>& stopped_;
};

// A scripted peer on a free port of 127.0.0.1: the script runs for each connection, one at a time, on a thread of
// its own.
class HostilePeer {
 public:
  using Script = std::function<void(PeerSocket&)>;

  explicit HostilePeer(Script script);
  ~HostilePeer();

  // Reads a request up to its empty line, answers with these bytes and closes.
  static Script Answer(std::string bytes);

  std::uint16_t Port() const { return port_; }
  int Connections() const { return connections_; }

 private:
  void Serve();

  Script script_;
  int listening_;
  std::uint16_t port_ = 0;
  std::atomic<int> connections_ = 0;
  std::atomic<bool> stopped_ = false;
  std::thread thread_;
};
