#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "engine/text.h"

namespace morvex {

// Whom a connection serves: a server, and the login there. One that is logged in serves nobody else.
struct ServerLogin {
  std::string host;
  std::uint32_t port = 0;
  std::string user;
  std::string password;

  [[nodiscard]] bool Matches(const ServerLogin& other) const {
    return Nox::EqualsIgnoreCase(host, other.host) && port == other.port && user == other.user &&
           password == other.password;
  }
};

// Connections that wait for their next use. Any thread; the lock is the pool's own and innermost.
template <typename Connection>
class IdlePool {
 public:
  static constexpr std::size_t kMaxIdle = 5;

  // The connection to that server that came in last, or null.
  std::unique_ptr<Connection> Take(const ServerLogin& server) {
    const std::lock_guard guard(lock_);
    const auto found = std::find_if(idle_.begin(), idle_.end(),
                                    [&](const Entry& entry) { return entry.server.Matches(server); });
    if (found == idle_.end()) return nullptr;
    std::unique_ptr<Connection> connection = std::move(found->connection);
    idle_.erase(found);
    return connection;
  }

  // With kMaxIdle of them, the oldest makes room.
  void Keep(ServerLogin server, std::unique_ptr<Connection> connection) {
    std::list<Entry> leaving;  // ends behind the guard, so that nobody waits for its close
    const std::lock_guard guard(lock_);
    if (idle_.size() == kMaxIdle) leaving.splice(leaving.begin(), idle_, std::prev(idle_.end()));
    idle_.push_front({std::move(server), std::move(connection)});
  }

  [[nodiscard]] std::size_t Count() const {
    const std::lock_guard guard(lock_);
    return idle_.size();
  }

 private:
  struct Entry {
    ServerLogin server;
    std::unique_ptr<Connection> connection;
  };

  mutable std::mutex lock_;
  std::list<Entry> idle_;  // the last one in first
};

}  // namespace morvex
